#ifndef ZO_TESSERA_FUZZ_MODELBUILDER_H
#define ZO_TESSERA_FUZZ_MODELBUILDER_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include <zo/Tessera.h>

#include "ModelTree.h"

/// Builds what a document should hold once a text has been read, or its first events.
class ModelBuilder : public zo::Tessera::CallbackParserListener {
public:
    explicit ModelBuilder(Model& model) : m_model(model) {}

    /// Null when there is no event. Beyond `mostEvents` nothing is built.
    Node* build(std::string_view text, size_t mostEvents = std::string::npos) {
        m_eventsLeft = mostEvents;
        zo::Tessera::CallbackParser(this).parse(text.data(), text.size());
        return m_root;
    }

    int cb_null() override { return scalar(m_model.make(zo::Tessera::etNull)); }
    int cb_boolean(bool value) override {
        Node& node = m_model.make(zo::Tessera::etBoolean);
        node.m_boolean = value;
        return scalar(node);
    }
    int cb_number(const char* text, size_t length) override {
        Node& node = m_model.make(zo::Tessera::etNumber);
        node.m_number = ModelNumber::ofText(std::string(text, length));
        return scalar(node);
    }
    int cb_string(const char* text, size_t length) override {
        Node& node = m_model.make(zo::Tessera::etString);
        node.m_string.assign(text, length);
        return scalar(node);
    }
    int cb_start_map() override { return open(m_model.make(zo::Tessera::etObject)); }
    int cb_map_key(const char* text, size_t length) override {
        m_key.assign(text, length);
        return goOn();
    }
    int cb_end_map() override { return close(); }
    int cb_start_array() override { return open(m_model.make(zo::Tessera::etArray)); }
    int cb_end_array() override { return close(); }
    int cb_integer(long long) override { return 0; }
    int cb_double(double) override { return 0; }
    int cb_error(const char*) override { return 1; }

private:
    bool goOn() { return m_eventsLeft > 0 && m_eventsLeft-- > 0; }

    int scalar(Node& node) {
        if (!goOn()) {
            return 0;
        }
        if (m_open.empty()) {
            m_root = &node;
        } else if (m_open.back()->m_kind == zo::Tessera::etObject) {
            m_model.attach(*m_open.back(), m_key, node);
        } else {
            m_model.append(*m_open.back(), node);
        }
        return 1;
    }

    int open(Node& node) {
        const int goesOn = scalar(node);
        m_open.push_back(&node);
        return goesOn;
    }

    int close() {
        m_open.pop_back();
        return goOn();
    }

    Model& m_model;
    Node* m_root = nullptr;
    std::vector<Node*> m_open;  // from the outermost inward
    std::string m_key;
    size_t m_eventsLeft = 0;
};

#endif
