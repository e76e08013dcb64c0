// The members of Element that put something at a path or remove it.

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include <zo/Tessera/Array.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/Exception.h>
#include <zo/Tessera/Object.h>
#include <zo/Tessera/Path.h>
#include <zo/Tessera/PathParser.h>

#include "containers/Place.h"
#include "paths/required.h"
#include "paths/segments.h"

namespace zo::Tessera {

namespace {

/// One step of a path.
struct Segment {
    bool isKey() const { return !key.empty(); }
    bool isAnyIndex() const { return !isKey() && index == Path::k_noIndex; }

    std::string key;  // empty for an index, never for a key
    unsigned long index;
};

using Segments = std::vector<Segment>;

class SegmentCollector final : public PathParserListener {
public:
    bool cbObjectProperty(const std::string& key) override {
        segments.push_back({key, Path::k_noIndex});
        return true;
    }
    bool cbArrayItem(unsigned long index) override {
        segments.push_back({std::string(), index});
        return true;
    }

    Segments segments;
};

/// The steps of `path`, which begins at `start`; at least one.
Segments segmentsOf(const Path& path, const Element& start) {
    SegmentCollector collector;
    PathParser(collector).parse(path);
    if (collector.segments.empty()) {
        throw Exception("Path may not be empty", &start);
    }
    return std::move(collector.segments);
}

Element* childAt(Element& container, const Segment& segment) {
    return segment.isKey() ? memberOf(container, segment.key) : itemOf(container, segment.index);
}

/// How far a path leads without its last segment.
struct Reached {
    bool isLast(const Segments& segments) const { return next + 1 == segments.size(); }

    Element* container;
    size_t next;  // the first segment that was not followed
};

/// `guest`, if any, will be put where the path leads, and must not be on the way. Containers that
/// do not know their parents show that here alone.
Reached follow(Element& start, const Segments& segments, const Element* guest) {
    Reached reached{&start, 0};
    while (!reached.isLast(segments)) {
        if (reached.container == guest) {
            Place::requireFree(guest, *guest);
        }
        Element* const child = childAt(*reached.container, segments[reached.next]);
        if (!child) {
            break;
        }
        reached.container = child;
        ++reached.next;
    }
    return reached;
}

bool canAppend(const Element& container, const Segment& segment) {
    if (segment.isKey()) {
        return container.type() == etObject;
    }
    return container.type() == etArray &&
           (segment.isAnyIndex() || segment.index == container.size());
}

/// What is missing must be such that it can be created. All of it is lacking in the container that
/// was reached.
void requireCreatable(const Reached& reached, const Segments& segments, const Path& path) {
    Element& container = *reached.container;
    for (size_t i = reached.next; i < segments.size(); ++i) {
        const Segment& segment = segments[i];
        const bool possible =
            i == reached.next
                ? childAt(container, segment) != nullptr || canAppend(container, segment)
                : segment.isKey() || segment.isAnyIndex() || segment.index == 0;
        if (possible) {
            continue;
        }
        if (segment.isKey()) {
            refuseSegment(true, container, path, segment.key);
        } else {
            refuseSegment(true, container, path, segment.index);
        }
    }
}

/// Puts the element at the segment, in place of what is there or last.
Element& put(Element& container, const Segment& segment, std::unique_ptr<Element>&& element) {
    if (segment.isKey()) {
        return container.getObjectValue().replace(segment.key, std::move(element));
    }
    Array& array = container.getArrayValue();
    return segment.index < array.size() ? array.replace(segment.index, std::move(element))
                                        : array.insert(array.size(), std::move(element));
}

/// New containers, one in the other.
struct Chain {
    std::unique_ptr<Element> outermost;
    Element* innermost;  // empty
};

std::unique_ptr<Element> containerFor(const Segment& segment) {
    return segment.isKey() ? object() : array();
}

/// The containers in which the segments from `first` on are found.
Chain chainFor(const Segments& segments, size_t first) {
    Chain chain{containerFor(segments.back()), nullptr};
    chain.innermost = chain.outermost.get();
    for (size_t i = segments.size() - 1; i > first; --i) {
        const Segment& segment = segments[i - 1];
        std::unique_ptr<Element> container = containerFor(segment);
        put(*container, segment, std::move(chain.outermost));
        chain.outermost = std::move(container);
    }
    return chain;
}

/// Puts an element into a new container, and hands it back to its owner unless that is kept.
class Loan {
public:
    Loan(std::unique_ptr<Element>& owner, Element& container, const Segment& segment)
        : m_owner(owner), m_container(container), m_segment(segment) {
        put(container, segment, std::move(owner));
    }
    Loan(const Loan&) = delete;
    Loan& operator=(const Loan&) = delete;

    ~Loan() {
        if (!m_kept) {
            m_owner = m_segment.isKey() ? m_container.getObjectValue().take(m_segment.key)
                                        : m_container.getArrayValue().take(0);
        }
    }

    void keep() { m_kept = true; }

private:
    std::unique_ptr<Element>& m_owner;
    Element& m_container;
    const Segment& m_segment;
    bool m_kept = false;
};

}  // namespace

Element& Element::set(const Path& path, const Element& element) {
    std::unique_ptr<Element> copy(element.clone());
    // The children of a clone are not attached to it.
    if (copy->type() == etObject) {
        copy->getObjectValue().reattach();
    } else if (copy->type() == etArray) {
        copy->getArrayValue().reattach();
    }
    return set(path, std::move(copy));
}

Element& Element::set(const Path& path, std::unique_ptr<Element>&& element) {
    Element& result = required(element, "element");
    const Segments segments = segmentsOf(path, *this);
    const Reached reached = follow(*this, segments, &result);
    requireCreatable(reached, segments, path);
    const Segment& segment = segments[reached.next];
    if (reached.isLast(segments)) {
        return put(*reached.container, segment, std::move(element));
    }
    Place::requireFree(&result, *reached.container);
    // Complete before it is attached: a failure leaves the tree as it was.
    Chain chain = chainFor(segments, reached.next + 1);
    Loan loan(element, *chain.innermost, segments.back());
    put(*reached.container, segment, std::move(chain.outermost));
    loan.keep();
    return result;
}

bool Element::remove(const Path& path) {
    const Segments segments = segmentsOf(path, *this);
    for (const Segment& segment : segments) {
        if (segment.isAnyIndex()) {
            throw ParseException("Index must be set!", -1, -1, -1, -1);
        }
    }
    const Reached reached = follow(*this, segments, nullptr);
    const Segment& last = segments.back();
    if (!reached.isLast(segments) || !childAt(*reached.container, last)) {
        return false;
    }
    if (last.isKey()) {
        return reached.container->getObjectValue().erase(last.key);
    }
    reached.container->getArrayValue().erase(last.index);
    return true;
}

}  // namespace zo::Tessera
