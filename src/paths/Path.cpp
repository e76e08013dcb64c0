#include <zo/Tessera/Path.h>

#include <utility>

#include <zo/Tessera/Element.h>
#include <zo/Tessera/ElementCreator.h>
#include <zo/Tessera/ElementGetter.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/PathGenerator.h>
#include <zo/Tessera/PathParser.h>
#include <zo/Tessera/SchemaPathConverters.h>

#include "paths/elementPath.h"
#include "paths/lookUp.h"

namespace zo::Tessera {

namespace {

/// What a converter writes while `path` is parsed.
template <class Converter>
Path converted(const Path& path) {
    Path result;
    PathGenerator generator(result);
    Converter converter(generator);
    PathParser(converter).parse(path);
    return result;
}

}  // namespace

const unsigned long Path::k_noIndex;
// Before the objects of an application that links the library statically and may use these.
[[gnu::init_priority(101)]] const std::string Path::k_noName;
[[gnu::init_priority(101)]] const std::string Path::k_meta = "meta";
[[gnu::init_priority(101)]] const std::string Path::k_schema = "schema";
[[gnu::init_priority(101)]] const std::string Path::k_default = "default";
[[gnu::init_priority(101)]] const std::string Path::k_metaObjectProperty = "properties";
[[gnu::init_priority(101)]] const std::string Path::k_metaArrayItem = "items";
[[gnu::init_priority(101)]] const std::string Path::k_escapeChars = ".[]*\\";

Path::Path(const std::string& text) : std::string(text) {}

Path::Path(const char* text) {
    if (text == nullptr) {
        throw Exception("Null pointer exception: path may not be null");
    }
    assign(text);
}

std::ostream& Path::elementPath(std::ostream& out, const Element& element, const Element* root) {
    generatePath(PathGenerator(out), element, root);
    return out;
}

std::ostream& Path::elementSchemaPath(std::ostream& out, const Element& element,
                                      const Element* root) {
    generateSchemaPath(PathGenerator(out), element, root);
    return out;
}

bool Path::pathExists(const Path& path, const Element& root) {
    return tryGetElement(path, root) != nullptr;
}

bool Path::pathExists(const Path& path, const Element& root, EType type) {
    return tryGetElement(path, root, type) != nullptr;
}

const Element& Path::getElement(const Path& path, const Element& root) {
    if (const Element* const found = tryGetElement(path, root)) {
        return *found;
    }
    // Once more, for the exception.
    ElementGetter getter(path, root, true);
    PathParser(getter).parse(path);
    return *getter.currentElement();
}

Element& Path::getElement(const Path& path, Element& root) {
    return const_cast<Element&>(getElement(path, std::as_const(root)));
}

const Element* Path::tryGetElement(const Path& path, const Element& root) {
    return lookUp(path, root);
}

Element* Path::tryGetElement(const Path& path, Element& root) {
    return const_cast<Element*>(tryGetElement(path, std::as_const(root)));
}

const Element* Path::tryGetElement(const Path& path, const Element& root, EType type) {
    const Element* const found = tryGetElement(path, root);
    return found && found->type() == type ? found : nullptr;
}

Element* Path::tryGetElement(const Path& path, Element& root, EType type) {
    return const_cast<Element*>(tryGetElement(path, std::as_const(root), type));
}

Element& Path::createElement(Element& root, const Path& path, const Element& value) {
    ElementCreator creator(path, root, value, true);
    PathParser(creator).parse(path);
    return *creator.currentElement();
}

Element* Path::tryCreateElement(Element& root, const Path& path, const Element& value) {
    ElementCreator creator(path, root, value, false);
    PathParser(creator).parse(path);
    if (!creator.pathExists()) {
        throw Exception(
            "Error creating element. Parent: \"" + root.path(nullptr) + "\" path: \"" + path + '"',
            &root);
    }
    return creator.currentElement();
}

Path Path::toSchemaPath(const Path& path) {
    return converted<ToSchemaPathConverter>(path);
}

Path Path::fromSchemaPath(const Path& schemaPath) {
    return converted<FromSchemaPathConverter>(schemaPath);
}

}  // namespace zo::Tessera
