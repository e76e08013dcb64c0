#ifndef ZO_TESSERA_FUZZ_MODELNUMBER_H
#define ZO_TESSERA_FUZZ_MODELNUMBER_H

#include <cmath>
#include <cstdlib>
#include <string>
#include <utility>

/// Thrown where a number whose text is out of range would throw.
struct ModelOutOfRange {};

/// A number as it should be: a text, and a binary value that is derived from it once. The
/// comparison knows only values that a double holds exactly.
struct ModelNumber {
    enum class Form { none, isSigned, isUnsigned, isDouble };

    static ModelNumber ofText(std::string text) { return {std::move(text), Form::none, 0}; }

    Form formOfText() const {
        if (m_text.find_first_of(".eE") != std::string::npos) {
            return Form::isDouble;
        }
        return m_text.front() == '-' ? Form::isSigned : Form::isUnsigned;
    }

    /// Every text of an integer that gets as far as the test of its range fails it.
    bool isOutOfRange() const {
        switch (formOfText()) {
            case Form::isDouble:
                return std::isinf(std::strtod(m_text.c_str(), nullptr));
            case Form::isSigned:
                return m_text.size() >= 19;
            default:
                return m_text.size() >= 20;
        }
    }

    /// A number out of range throws once, and is 0 from then on.
    void derive() {
        if (m_form != Form::none) {
            return;
        }
        m_form = formOfText();
        if (isOutOfRange()) {
            throw ModelOutOfRange();
        }
        m_value = std::strtod(m_text.c_str(), nullptr);
    }

    /// -1, 0 or 1. The other number is derived first.
    int compare(ModelNumber& other) {
        other.derive();
        derive();
        // A signed 0 is smaller than an unsigned one.
        if (m_form == Form::isSigned && other.m_form == Form::isUnsigned && m_value <= 0) {
            return -1;
        }
        if (m_form == Form::isUnsigned && other.m_form == Form::isSigned && other.m_value <= 0) {
            return 1;
        }
        return (m_value > other.m_value ? 1 : 0) - (m_value < other.m_value ? 1 : 0);
    }

    std::string m_text = "0";
    Form m_form = Form::isSigned;
    double m_value = 0;
};

#endif
