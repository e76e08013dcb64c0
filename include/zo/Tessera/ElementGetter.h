#ifndef ZO_TESSERA_ELEMENTGETTER_H
#define ZO_TESSERA_ELEMENTGETTER_H

#include <string>

#include <zo/Tessera/Path.h>
#include <zo/Tessera/PathParser.h>
#include <zo/Tessera/export.h>

namespace zo::Tessera {

class Element;
/// Follows the segments of a path from an element to the one that it names, and changes nothing.
/// It serves one run of a `PathParser`; `Path::getElement` and its siblings wire the two together.
class ZO_TESSERA_EXPORT ElementGetter : public PathParserListener {
public:
    /// `path` is the text that will be parsed, for the message of `PathNotFound`; it need not
    /// outlive the call. `root`, where the path begins, must outlive the getter. A missing segment
    /// throws `PathNotFound` when `throwOnMissing` is set, and otherwise ends the run quietly.
    ElementGetter(const Path& path, const Element& root, bool throwOnMissing);

    /// Both step to the child that they name. An index "*" throws `ParseException` "Index must be
    /// set!", whether missing segments throw or not.
    /// @{
    bool cbObjectProperty(const std::string& key) override;
    bool cbArrayItem(unsigned long index) override;
    /// @}

    /// Whether every segment so far exists; not changed by an exception.
    bool pathExists() const;
    /// The element reached so far: the one that lacks the segment, when one is missing.
    const Element* currentElement() const;

private:
    const Element* m_current;  // not owned
    bool m_found = true;
    bool m_throw;
    std::string m_path;
};

}  // namespace zo::Tessera

#endif
