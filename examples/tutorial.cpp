// Keeps a settings file: reads it, looks into it with the defaults of a schema, changes it by path
// and writes it back.

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <optional>
#include <string>

#include <zo/Tessera.h>

using namespace zo::Tessera;
namespace fs = std::filesystem;

namespace {

const fs::path k_file = "tutorial_settings.json";

/// What a user has written.
constexpr const char* k_text = R"(// The left half of the screen.
{
    "window": {
        "width": 1024,
        "zoom": 1.50,
        "title": "My notes"  // not "untitled"
    },
    "recent": [
        {"file": "notes.txt"},
        {"file": "todo.txt", "readOnly": true}
    ]
}
)";

/// The settings that the program knows, each with its default.
constexpr const char* k_schema = R"({
    "properties": {
        "window": {
            "properties": {
                "width": {"default": 640},
                "height": {"default": 480},
                "zoom": {"default": 1.0},
                "title": {"default": "untitled"}
            }
        },
        "recent": {
            "default": [],
            "items": {
                "properties": {
                    "readOnly": {"default": false}
                }
            }
        }
    }
})";

/// A file that is not there stands for settings without any choice of the user's.
Dom readSettings(const fs::path& file) {
    Dom settings;
    if (fs::exists(file)) {
        settings = readDocumentFile(file);
    } else {
        settings.setRoot(object());
    }
    Object& root = settings.root()->getObjectValue();  // refuses what is no object
    root.set("meta.schema", readDocument(k_schema).takeRoot());
    settings.setIncludeMeta(false);  // writing leaves it out
    return settings;
}

/// The user's value, or the default where there is none or one that does not serve.
template <class T>
T setting(const Element& from, const Path& path) {
    const std::optional<T> chosen = from.getUsingDefault(path).tryAs<T>();
    return chosen ? *chosen : from.getDefault(path).as<T>();
}

void show(const Element& settings) {
    std::cout << setting<std::string>(settings, "window.title") << ": "
              << setting<int>(settings, "window.width") << " x "
              << setting<int>(settings, "window.height") << ", zoom "
              << setting<double>(settings, "window.zoom") << '\n';
    for (const Element* const entry : settings.getUsingDefault("recent").getArrayValue()) {
        std::cout << entry->path(nullptr) << ": " << entry->get("file").as<std::string>()
                  << (setting<bool>(*entry, "readOnly") ? ", read only" : "") << '\n';
    }
}

void change(Element& settings) {
    settings.set("window.width", value(1280));  // replaces what is there
    settings.set("window.height", value(768));  // creates what is not
    settings.remove("window.title");            // back to the default
    settings.set("recent[0].readOnly", value(true));
    Element& entry = settings.set("recent[*]", object());  // appends
    entry.set("file", value("ideas.txt"));
    std::cout << entry.path(nullptr) << " is new\n";
}

/// Of a file that can be read.
bool hasComments(const fs::path& file) {
    ReadOptions options;
    options.refuseComments = true;
    try {
        readDocumentFile(file, options);
        return false;
    } catch (const ParseException& refusal) {
        std::cout << refusal.what() << '\n';
        return true;
    }
}

void saveSettings(const fs::path& file, const Dom& settings) {
    if (fs::exists(file) && hasComments(file)) {
        fs::copy_file(file, file.string() + ".old", fs::copy_options::overwrite_existing);
    }
    writeDocumentFile(file, settings);
}

/// What becomes of a file in which the user has made a mistake.
void tryMistake(const char* text) {
    std::ofstream(k_file) << text;
    try {
        const Dom settings = readSettings(k_file);
        std::cout << "width " << setting<int>(*settings.root(), "window.width") << '\n';
    } catch (const Exception& error) {
        std::cout << error.what() << '\n';
    }
}

}  // namespace

int main() {
    try {
        std::ofstream(k_file) << k_text;

        Dom settings = readSettings(k_file);
        show(*settings.root());

        change(*settings.root());
        saveSettings(k_file, settings);
        std::cout << std::ifstream(k_file).rdbuf();

        tryMistake(R"({"window": {"width": "wide"}})");
        tryMistake(R"({"window": {"width": }})");
        tryMistake("[]");

        fs::remove(k_file);
        fs::remove(k_file.string() + ".old");
    } catch (const std::exception& error) {
        std::cerr << "tutorial: " << error.what() << '\n';
        return 1;
    }
}
