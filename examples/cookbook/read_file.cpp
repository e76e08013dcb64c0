// Reads a document from a file, and tells what is wrong where that fails.

#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>

#include <zo/Tessera.h>

using namespace zo::Tessera;

int main() {
    const std::filesystem::path file = "cookbook_read_file.json";
    std::ofstream(file) << "{\"title\": \"Cup\",\n \"title\": \"Mug\"}\n";

    const Dom document = readDocumentFile(file);
    std::cout << document.root()->get("title").as<std::string>() << '\n';

    ReadOptions options;
    options.refuseDuplicateKeys = true;
    options.greatestDepth = 100;
    try {
        readDocumentFile(file, options);
    } catch (const ParseException& error) {
        std::cout << "line " << error.line() << ": " << error.what() << '\n';
    }

    std::filesystem::remove(file);
    try {
        readDocumentFile(file);
    } catch (const ParseException& error) {
        std::cout << "line " << error.line() << ": " << error.what() << '\n';
    }
}
