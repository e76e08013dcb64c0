#ifndef ZO_TESSERA_SRC_DOCUMENTS_DOCUMENTBUILDER_H
#define ZO_TESSERA_SRC_DOCUMENTS_DOCUMENTBUILDER_H

#include <cstddef>
#include <memory>
#include <string>

#include <zo/Tessera/CallbackParser.h>
#include <zo/Tessera/Element.h>
#include <zo/Tessera/readDocument.h>

#include "support/TreeMemory.h"

namespace zo::Tessera {

/// Builds a tree from the events of one well-formed text. An event is refused only for what the
/// options say.
class DocumentBuilder final : public CallbackParserListener {
public:
    static constexpr const char* k_textBehind = "text behind the document";

    /// `options` must outlive the builder.
    explicit DocumentBuilder(const ReadOptions& options);

    int cb_null() override;
    int cb_boolean(bool value) override;
    int cb_number(const char* text, size_t length) override;
    int cb_string(const char* text, size_t length) override;
    int cb_start_map() override;
    int cb_map_key(const char* text, size_t length) override;
    int cb_end_map() override;
    int cb_start_array() override;
    int cb_end_array() override;
    int cb_error(const char* message) override;
    int cb_integer(long long value) override;
    int cb_double(double value) override;

    /// Whether nothing came yet.
    bool isEmpty() const { return !m_root; }
    /// Whether there is a whole document.
    bool isComplete() const { return m_root != nullptr && m_container == nullptr; }
    /// Why the last event was refused; empty if none was.
    const std::string& refusal() const { return m_refusal; }
    /// The path of the element being read: a container, or what comes next in it, which in an
    /// array is known by the comma before it.
    std::string path(bool isSeparated) const;
    /// Why no value or key that begins with `first` may stand next, or null if one may, given
    /// whether a comma or a colon came since the last event. In the tokeniser's words where it has
    /// any.
    const char* misplaced(char first, bool isSeparated) const;
    std::unique_ptr<Element> takeRoot();

private:
    template <class T, class... Value>
    Element& place(Value&&... value);
    template <class Container>
    int open();
    int close();
    int refuse(const std::string& reason);

    const ReadOptions& m_options;
    TreeMemory m_memory;
    std::unique_ptr<Element> m_root;
    Element* m_container = nullptr;  // the innermost open one
    size_t m_depth = 0;
    std::string m_key;  // of the member to come
    bool m_haveKey = false;
    std::string m_refusal;
};

}  // namespace zo::Tessera

#endif
