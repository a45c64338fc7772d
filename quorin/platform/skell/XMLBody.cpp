#include "quorin/platform/skell/XMLBody.hpp"

#include "quorin/platform/json/Members.hpp"
#include "quorin/platform/json/Print.hpp"
#include "quorin/platform/skell/XMLCharacters.hpp"

#include <pugixml.hpp>

#include <new>
#include <string_view>

namespace quorin::skell {
namespace {

using json::Kind;
using json::Node;

/// pugixml tells of missing memory by an empty handle or false.
template <class Made>
Made made(Made result) {
    if (!result) throw std::bad_alloc();
    return result;
}

/// pugixml leaves a CR in text as it stands, which every reader takes for a line feed (XML 1.0 section 2.11). Nowhere
/// else does it write one.
class Output final : public pugi::xml_writer {
public:
    void write(const void* data, std::size_t size) override {
        std::string_view bytes(static_cast<const char*>(data), size);
        for (auto at = bytes.find('\r'); at != bytes.npos; at = bytes.find('\r')) {
            text_.append(bytes.substr(0, at)).append("&#13;");
            bytes.remove_prefix(at + 1);
        }
        text_.append(bytes);
    }
    std::string take() { return std::move(text_); }

private:
    std::string text_{};
};

class Document {
public:
    explicit Document(const json::Value& root) : root_(root) {}

    std::string write() {
        pugi::xml_node request = made(document_.append_child("request"));
        members(request, root_.node());
        Output output;
        request.print(output, "", pugi::format_raw, pugi::encoding_utf8);
        return output.take();
    }

private:
    void members(pugi::xml_node parent, const Node& object) {
        for (const std::uint32_t member : json::byteOrder(object)) {
            const std::string_view name = object.name(member).string();
            const Node& value = object.value(member);
            if (value.kind == Kind::list)
                items(parent, name, value);
            else
                element(parent, name, value);
        }
    }

    void items(pugi::xml_node parent, std::string_view name, const Node& list) {
        for (std::uint32_t i = 0; i < list.size; ++i) element(parent, name, list.items[i]);
    }

    void element(pugi::xml_node parent, std::string_view name, const Node& value) {
        const pugi::xml_node added = named(parent, name);
        switch (value.kind) {
            case Kind::object: return members(added, value);
            case Kind::list: return items(added, name, value);
            case Kind::null: return;
            case Kind::string: return text(added, xmlText(value.string()));
            default: return text(added, json::print(root_.at(value)));
        }
    }

    static pugi::xml_node named(pugi::xml_node parent, std::string_view name) {
        if (isXMLName(name)) return made(parent.append_child(std::string(name).c_str()));
        pugi::xml_node member = made(parent.append_child("member"));
        made(made(member.append_attribute("name")).set_value(xmlText(name).c_str()));
        return member;
    }

    static void text(pugi::xml_node element, const std::string& value) {
        made(made(element.append_child(pugi::node_pcdata)).set_value(value.c_str()));
    }

    const json::Value& root_;
    pugi::xml_document document_{};
};

}  // namespace

std::string xmlBody(const json::DocumentMap& content) { return Document(content.value()).write(); }

}  // namespace quorin::skell
