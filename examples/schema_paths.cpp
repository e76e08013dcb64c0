// Turns the path of data into the path of the schema node that describes them, and back.

#include <iostream>

#include <zo/Tessera.h>

using namespace zo::Tessera;

int main() {
    for (const Path data : {"title", "people[3].name", "people[*]", R"(v1\.2.done)", ""}) {
        const Path schema = Path::toSchemaPath(data);
        std::cout << '"' << data << "\" is described at " << schema << ", which describes \""
                  << Path::fromSchemaPath(schema) << "\"\n";
    }
    // The schema describes all items alike: which one it was is not known any more.

    for (const Path other : {"title", "meta.schema.title", "meta.schema[0]"}) {
        try {
            Path::fromSchemaPath(other);
        } catch (const ParseException& error) {
            std::cout << other << ": " << error.message() << '\n';
        }
    }

    // An element knows both of its paths.
    const auto document = object();
    const Element& name = document->set("person.name", value("Ada"));
    std::cout << name.path(nullptr) << " and " << name.schemaPath(nullptr) << '\n';
}
