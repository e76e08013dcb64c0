#include <zo/Tessera/ElementGetter.h>

#include "paths/segments.h"

namespace zo::Tessera {

ElementGetter::ElementGetter(const Path& path, const Element& root, bool throwOnMissing)
    : m_current(&root), m_throw(throwOnMissing) {
    // Only an exception shows the text: a look-up that throws none need not pay for a copy.
    if (m_throw) {
        m_path = path;
    }
}

bool ElementGetter::cbObjectProperty(const std::string& key) {
    const Element* const member = memberOf(*m_current, key);
    if (!member) {
        return m_found = refuseSegment(m_throw, *m_current, m_path, key);
    }
    m_current = member;
    return true;
}

bool ElementGetter::cbArrayItem(unsigned long index) {
    if (index == Path::k_noIndex) {
        throw ParseException("Index must be set!", -1, -1, -1, -1);
    }
    const Element* const item = itemOf(*m_current, index);
    if (!item) {
        return m_found = refuseSegment(m_throw, *m_current, m_path, index);
    }
    m_current = item;
    return true;
}

bool ElementGetter::pathExists() const {
    return m_found;
}

const Element* ElementGetter::currentElement() const {
    return m_current;
}

}  // namespace zo::Tessera
