#ifndef ZO_TESSERA_ELEMENTCREATOR_H
#define ZO_TESSERA_ELEMENTCREATOR_H

#include <memory>
#include <string>

#include <zo/Tessera/Element.h>
#include <zo/Tessera/Path.h>
#include <zo/Tessera/PathParser.h>
#include <zo/Tessera/export.h>

namespace zo::Tessera {

/// Follows the segments of a path as `ElementGetter` does, creates what is missing on the way, and
/// puts a copy of a value at its end. It serves one run of a `PathParser`; `Path::createElement`
/// and `Path::tryCreateElement` wire the two together.
///
/// What can be missing is the member of an object, or the item "[*]" of an array, which is
/// appended. Beware: what is created on the way is of the kind of the container that lacked it, not
/// of the kind that the next segment needs. So `a.b.c` makes objects and `list[*][*]` arrays, while
/// `a[*]` without an `a` creates the object `a` and then fails, and `list[*].b` appends an array
/// and then fails. What was created by then stays.
class ZO_TESSERA_EXPORT ElementCreator : public PathParserListener {
public:
    /// `path` is the text that will be parsed, for the message of `PathNotFound`; it need not
    /// outlive the call. `root`, where the path begins, must outlive the creator. `value` is cloned
    /// here and now. A segment that cannot be created throws `PathNotFound` when `throwOnMissing`
    /// is set, and otherwise ends the run quietly. A "*" that finds no array is named there by its
    /// number, "[18446744073709551615]".
    ElementCreator(const Path& path, Element& root, const Element& value, bool throwOnMissing);
    ElementCreator(const ElementCreator&) = delete;
    ElementCreator& operator=(const ElementCreator&) = delete;
    ~ElementCreator() override;

    bool cbObjectProperty(const std::string& key) override;
    bool cbArrayItem(unsigned long index) override;
    /// Puts the copy of the value in the place of the last segment, unless that existed. The
    /// container is asked for its kind anew: one that is none any more throws
    /// `zo::Tessera::Exception` "Ivalid type!". After an exception the container is as it was.
    void cbFinish() override;

    /// Whether every segment so far exists or can be created; not changed by an exception.
    bool pathExists() const;
    /// The element reached so far: after the run, the one that the path names.
    Element* currentElement() const;

private:
    void createPending();

    Element* m_current;                // not owned
    std::unique_ptr<Element> m_value;  // null once it is part of the tree
    bool m_found = true;
    bool m_throw;
    bool m_pending = false;         // the last segment is still to be created
    EType m_pendingType = etEmpty;  // of the container that lacks it
    std::string m_pendingKey;
    std::string m_path;
};

}  // namespace zo::Tessera

#endif
