// The members of Element that take or give a path, but for the search in arrays.

#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/Path.h>

#include "paths/elementPath.h"
#include "paths/required.h"

namespace zo::Tessera {

std::string Element::path(const Element* ancestor) const {
    std::string text;
    generatePath(PathGenerator(text), *this, ancestor);
    return text;
}

std::ostream& Element::path(std::ostream& out, const Element* ancestor) const {
    return Path::elementPath(out, *this, ancestor);
}

std::string Element::schemaPath(const Element* ancestor) const {
    std::string text;
    generateSchemaPath(PathGenerator(text), *this, ancestor);
    return text;
}

std::ostream& Element::schemaPath(std::ostream& out, const Element* ancestor) const {
    return Path::elementSchemaPath(out, *this, ancestor);
}

Element& Element::get(const Path& path) {
    return path.empty() ? *this : Path::getElement(path, *this);
}

const Element& Element::get(const Path& path) const {
    return path.empty() ? *this : Path::getElement(path, *this);
}

bool Element::pathExists(const Path& path) const {
    return Path::pathExists(path, *this);
}

bool Element::pathExists(const Path& path, EType type) const {
    return Path::pathExists(path, *this, type);
}

Element& Element::tryUpdate(const Path& path, const Element& element) {
    return Path::tryCreateElement(*this, path, element)->realAssign(element);
}

Element& Element::tryUpdate(const Path& path, const std::unique_ptr<Element>& element) {
    return tryUpdate(path, required(element, "element"));
}

Element& Element::insertElement(const Path& path, const Element& element) {
    Object& object = getObjectValue();
    std::unique_ptr<Element> copy(element.clone());
    object.insert(path, copy.get());
    return *copy.release();
}

Element& Element::insertElement(const Path& path, std::unique_ptr<Element> element) {
    Object& object = getObjectValue();
    object.insert(path, &required(element, "element"));
    return *element.release();
}

const Element& Element::getDefault(const Path& path) const {
    Path whole = this->path(nullptr);
    if (!path.empty() && path.front() != '.' && path.front() != '[') {
        whole += '.';
    }
    whole += path;
    return root().get(Path::toSchemaPath(whole) + '.' + Path::k_default);
}

const Element& Element::getUsingDefault(const Path& path) const {
    // The default first, even where the element exists: callers rely on its exceptions.
    const Element& byDefault = getDefault(path);
    const Element* const found = Path::tryGetElement(path, *this);
    return found ? *found : byDefault;
}

}  // namespace zo::Tessera
