#include <zo/Tessera/Dom.h>

#include <utility>

#include <zo/Tessera/DomParser.h>

namespace zo::Tessera {

namespace {

std::unique_ptr<Element> copyOf(const Element* root) {
    return std::unique_ptr<Element>(root ? root->clone() : nullptr);
}

}  // namespace

// Before the documents of an application that links the library statically.
[[gnu::init_priority(101)]] const std::string Dom::k_defaultMetaKey = "meta";

Dom::Dom() = default;

Dom::Dom(const Dom& other)
    : m_root(copyOf(other.m_root.get())),
      m_includeMeta(other.m_includeMeta),
      m_metaKey(other.m_metaKey) {}

Dom& Dom::operator=(const Dom& other) {
    if (this != &other) {
        std::unique_ptr<Element> root = copyOf(other.m_root.get());
        m_metaKey = other.m_metaKey;
        m_root = std::move(root);
        m_includeMeta = other.m_includeMeta;
    }
    return *this;
}

Dom::Dom(Dom&& other) noexcept : Dom() {
    swap(other);
}

Dom& Dom::operator=(Dom&& other) noexcept {
    Dom taken(std::move(other));
    swap(taken);
    return *this;
}

void Dom::swap(Dom& other) noexcept {
    m_root.swap(other.m_root);
    std::swap(m_includeMeta, other.m_includeMeta);
    m_metaKey.swap(other.m_metaKey);
}

Dom::~Dom() = default;

Element* Dom::root() {
    return m_root.get();
}

const Element* Dom::root() const {
    return m_root.get();
}

void Dom::setRoot(Element* root) {
    if (root != m_root.get()) {
        m_root.reset(root);
    }
}

void Dom::setRoot(std::unique_ptr<Element> root) {
    setRoot(root.release());
}

void Dom::setRoot(const Element& root) {
    m_root = copyOf(&root);
}

std::unique_ptr<Element> Dom::takeRoot() {
    return std::move(m_root);
}

bool Dom::includeMeta() const {
    return m_includeMeta;
}

void Dom::setIncludeMeta(bool include) {
    m_includeMeta = include;
}

const std::string& Dom::metaKey() const {
    return m_metaKey;
}

void Dom::setMetaKey(const std::string& key) {
    m_metaKey = key;
}

bool Dom::operator==(const Dom& other) const {
    if (this == &other) {
        return true;
    }
    return m_includeMeta == other.m_includeMeta && m_metaKey == other.m_metaKey && m_root &&
           other.m_root && m_root->compare(*other.m_root) == 0;
}

bool Dom::operator!=(const Dom& other) const {
    return !(*this == other);
}

std::istream& operator>>(std::istream& in, Dom& dom) {
    return DomParser().parse(dom, in);
}

}  // namespace zo::Tessera
