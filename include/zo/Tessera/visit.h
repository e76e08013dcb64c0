#ifndef ZO_TESSERA_VISIT_H
#define ZO_TESSERA_VISIT_H

#include <functional>

#include <zo/Tessera/export.h>

namespace zo::Tessera {

class Element;
class Path;

/// What a visitor answers.
enum EVisit : int {
    evGoOn,  ///< to what comes next
    evSkip,  ///< what is below this element; from `leave` it means the same as `evGoOn`
    evStop   ///< the whole walk
};

/// `path` leads from the element where the walk began to `element`; it is good during the call.
/// @{
using Visitor = std::function<EVisit(Element& element, const Path& path)>;
using ConstVisitor = std::function<EVisit(const Element& element, const Path& path)>;
/// @}

/// Walks a tree in the order of its text. `enter` is called for each element, `top` first, and
/// `leave`, if given, after what is below it, for scalars and for what was skipped, too. Returns
/// whether the walk came to its end; `evStop` ends it at once, without any further call.
///
///     visit(root, [](const Element& element, const Path& path) {
///         if (element.type() == etNull) {
///             std::cout << path << " is null\n";
///         }
///         return evGoOn;
///     });
///
/// A `ConstVisitor` that has a name wants a constant tree: `visit(std::as_const(root), visitor)`.
/// A visitor may change the element that it is given, in `enter` its children, too: what it holds
/// when `enter` returns is walked. It must leave the children of the containers around it as they
/// are. An exception of a visitor passes; an empty `enter` throws `zo::Tessera::Exception` "Null
/// pointer exception: visitor may not be null". Any depth; linear in the tree and in the lengths of
/// its keys.
/// @{
ZO_TESSERA_EXPORT bool visit(Element& top, const Visitor& enter, const Visitor& leave = nullptr);
ZO_TESSERA_EXPORT bool visit(const Element& top, const ConstVisitor& enter,
                             const ConstVisitor& leave = nullptr);
/// @}

}  // namespace zo::Tessera

#endif
