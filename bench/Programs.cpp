// Whole processes: the program with a small document, and the compiler with the chief header.
#include "bench/Documents.hpp"
#include "bench/Rows.hpp"
#include "tests/support/TemporaryFolder.hpp"

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <cstdlib>

namespace quorin::bench {
namespace {

/// Runs a program to its end, without its output; one that fails ends the bench.
int run(const std::vector<std::string>& command) {
    std::vector<char*> arguments;
    for (const auto& word : command) arguments.push_back(const_cast<char*>(word.c_str()));
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t process = 0;
    int status = posix_spawnp(&process, arguments[0], &actions, nullptr, arguments.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (status == 0) waitpid(process, &status, 0);
    if (status == 0) return 0;
    std::fprintf(stderr, "%s failed: the bench is broken\n", arguments[0]);
    std::exit(1);
}

void addRun(const std::string& name, std::vector<std::string> command) {
    add(name, [command = std::move(command)] { return run(command); });
}

void addCompilation(const std::string& name, const std::string& file) {
    add(name, [file] {
        return run({QUORIN_CXX, "-std=c++20", "-fsyntax-only", "-I" QUORIN_SOURCE_DIR, file});
    })->Iterations(1);
}

}  // namespace

Rows programRows() {
    static const support::TemporaryFolder folder;
    const std::string document = folder.write("small.json", smallDocument());
    addRun("program", {QUORIN_PROGRAM, "load", document, "--store", ":memory:"});
    addRun("program-empty", {QUORIN_EMPTY_PROGRAM});
    addRun("jq", {"jq", ".", document});
    addCompilation("compile", folder.write("chief.cpp", "#include \"quorin/core/ConfigurationManager.hpp\"\n"));
    addCompilation("compile-standard", folder.write("standard.cpp",
                                                    "#include <functional>\n#include <map>\n"
                                                    "#include <memory>\n#include <string>\n"
                                                    "#include <vector>\n"));
    return {
        {"program with a small document / an empty program", "program", "program-empty", 1.5, 1.15},
        {"program with a small document / jq . FILE", "program", "jq", 0.35, 0.2},
        {"compiling the chief header / five standard headers", "compile", "compile-standard", 3, 1.8},
    };
}

}  // namespace quorin::bench
