#include <zo/Tessera/visit.h>

#include <cstddef>
#include <vector>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/Path.h>
#include <zo/Tessera/PathGenerator.h>

#include "containers/Children.h"

namespace zo::Tessera {

namespace {

/// Visits a tree without recursion. Its operations return whether the walk goes on.
template <class ElementType>
class TreeVisit {
public:
    using Call = std::function<EVisit(ElementType& element, const Path& path)>;

    TreeVisit(const Call& enter, const Call& leave) : m_enter(enter), m_leave(leave) {
        if (!m_enter) {
            throw Exception("Null pointer exception: visitor may not be null");
        }
    }

    bool run(ElementType& top) {
        bool goesOn = enter(top, 0);
        // All that stands before the open containers' current children is visited, and the path
        // leads to the innermost of these containers.
        while (goesOn && !m_open.empty()) {
            goesOn = m_open.back().m_children.atEnd() ? close() : enterNext();
        }
        return goesOn;
    }

private:
    struct Level {
        Level(ElementType& element, size_t outerPath, const Children& children)
            : m_element(element), m_outerPath(outerPath), m_children(children) {}

        ElementType& m_element;
        size_t m_outerPath;  // the length of the path to the container around
        Children m_children;
        size_t m_index = 0;
    };

    bool enterNext() {
        const size_t outerPath = m_path.size();
        Level& level = m_open.back();
        // The tree as a constant serves both: whoever gave a changeable top may change this, too.
        auto& child = const_cast<ElementType&>(level.m_children.element());
        PathGenerator segment(m_path);
        if (level.m_children.keyed()) {
            if (m_open.size() > 1) {
                m_path += '.';
            }
            segment.genObjectProperty(level.m_children.key());
        } else {
            segment.genListItem(level.m_index++);
        }
        level.m_children.advance();
        return enter(child, outerPath);
    }

    bool enter(ElementType& element, size_t outerPath) {
        const EVisit answer = m_enter(element, m_path);
        if (answer == evStop) {
            return false;
        }
        if (answer != evSkip && element.type() == etArray) {
            m_open.emplace_back(element, outerPath, Children(element.getArrayValue()));
            return true;
        }
        if (answer != evSkip && element.type() == etObject) {
            m_open.emplace_back(element, outerPath, Children(element.getObjectValue()));
            return true;
        }
        return leave(element, outerPath);
    }

    bool close() {
        ElementType& element = m_open.back().m_element;
        const size_t outerPath = m_open.back().m_outerPath;
        m_open.pop_back();
        return leave(element, outerPath);
    }

    bool leave(ElementType& element, size_t outerPath) {
        const bool goesOn = !m_leave || m_leave(element, m_path) != evStop;
        m_path.resize(outerPath);
        return goesOn;
    }

    const Call& m_enter;
    const Call& m_leave;
    Path m_path;
    std::vector<Level> m_open;  // from the outermost inward
};

}  // namespace

bool visit(Element& top, const Visitor& enter, const Visitor& leave) {
    return TreeVisit<Element>(enter, leave).run(top);
}

bool visit(const Element& top, const ConstVisitor& enter, const ConstVisitor& leave) {
    return TreeVisit<const Element>(enter, leave).run(top);
}

}  // namespace zo::Tessera
