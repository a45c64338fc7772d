// Prints the reference of the configuration document: a preamble, then what the key tables of the library say.
//
//     quorin_document_keys PREAMBLE > docs/document-keys.md

#include "quorin/platform/foundation/File.hpp"

#include "Brands.hpp"
#include "Sections.hpp"
#include "Values.hpp"

#include <cstdio>
#include <string>

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fputs("usage: quorin_document_keys PREAMBLE\n", stderr);
        return 2;
    }
    const auto preamble = quorin::foundation::readFile(argv[1]);
    if (!preamble) {
        std::fprintf(stderr, "cannot read %s\n", argv[1]);
        return 1;
    }
    const std::string reference = preamble.bytes + "\n## Brands\n\n" + quorin::keys::brands() + "\n## Values\n\n"
                                  + quorin::keys::values() + quorin::keys::sections();
    return std::fputs(reference.c_str(), stdout) < 0 || std::fflush(stdout) != 0 ? 1 : 0;
}
