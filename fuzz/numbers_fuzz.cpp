// Any texts as numbers, and any bits as numbers of the built-in types. Lines are texts of their
// own; the first bytes are the bits. Forms, conversions, comparisons and decimals are held against
// models that calculate exactly.

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include <zo/DecNumber.h>
#include <zo/Tessera.h>

#include "ExactDecimal.h"
#include "ExactNumber.h"
#include "check.h"
#include "decimalChecks.h"

using namespace zo::Tessera;

namespace {

/// A number beside what it must be.
struct Subject {
    BasicNumber number;
    ExactNumber model;

    void setText(const std::string& text) {
        number.set(text);
        model.setText(text);
    }
    template <class T>
    void setBits(const char* bytes) {
        T value;
        std::memcpy(&value, bytes, sizeof(value));
        number.set(value);
        model.setBinary(value);
    }
};

std::string textOf(const zo::Exception& exception) {
    std::string text;
    exception.generateWhat(text);
    return text;
}

/// The text that an action refuses because its binary form cannot be derived.
template <class Action>
std::optional<std::string> refusedBy(const Action& action) {
    try {
        action();
    } catch (const ValueOutOfRange<std::string, std::string>& e) {
        check(e.min().empty() && e.max().empty(), "a refused text comes with empty bounds");
        checkSame(textOf(e), "Value out of range! Value: " + e.value() + " Min:  Max: ",
                  "the message for a refused text");
        return e.value();
    } catch (const zo::Exception&) {
        return std::nullopt;
    }
    return std::nullopt;
}

/// Whatever needs the binary form first refuses the text, and does so once.
void checkRefusal(const Subject& subject) {
    ExactNumber model = subject.model;
    const std::optional<std::string> expected =
        model.sync() ? std::nullopt : std::optional<std::string>(model.text);
    const auto refuses = [&](const auto& reader, const char* what) {
        const BasicNumber number = subject.number;
        check(refusedBy([&] { reader(number); }) == expected, what);
        check(number.type() == model.form, "a text is classified by its characters");
    };
    refuses([](const BasicNumber& number) { number.type(); }, "type()");
    refuses([](const BasicNumber& number) { number.toInt(); }, "toInt()");
    refuses([](const BasicNumber& number) { number.toDecNumber(); }, "toDecNumber()");
    refuses([](const BasicNumber& number) { number.compare(0.0); }, "compare() on the left");
    refuses([](const BasicNumber& number) { BasicNumber().compare(number); }, "on the right");
}

bool isAscii(const std::string& text) {
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

void checkTexts(const BasicNumber& number, const ExactNumber& model) {
    const std::string expected = model.shownText();
    checkSame(number.toString(), expected, "toString()");
    std::ostringstream out;
    check(&number.writeAt(out) == &out, "writeAt() returns the stream");
    checkSame(out.str(), expected, "writeAt()");
    if (isAscii(expected)) {
        const std::wstring wide(expected.begin(), expected.end());
        std::wostringstream wideOut;
        number.writeAt(wideOut);
        check(number.toWString() == wide && wideOut.str() == wide, "the text as a wide one");
    }
}

template <class T>
bool areSame(T left, T right) {
    return left == right || (left != left && right != right);
}

template <class T>
void checkConversion(const Subject& subject, T (BasicNumber::*convert)() const) {
    const bool expected = isInRange<T>(subject.model);
    T out = 42;
    try {
        check(&subject.number.getValue(out) == &out, "getValue() returns what it was given");
        check(expected, "a number that is converted is in range");
        const T wanted = converted<T>(subject.model);
        check(areSame(out, wanted), "the value that a number converts to");
        check(areSame((subject.number.*convert)(), wanted), "the conversion by name");
    } catch (const ValueOutOfRange<BasicNumber, T>& e) {
        check(!expected && out == 42, "what is out of range leaves the output as it was");
        check(e.min() == lowerBound<T>() && e.max() == upperBound<T>(), "the bounds told");
        std::ostringstream text;
        text << "Value out of range! Value: " << subject.model.shownText() << " Min: " << e.min()
             << " Max: " << e.max();
        checkSame(textOf(e), text.str(), "the message for what is out of range");
        check(e.value().type() == subject.model.form, "the value told has the form of the number");
    }
}

void checkConversions(const Subject& subject) {
    checkConversion(subject, &BasicNumber::toChar);
    checkConversion(subject, &BasicNumber::toUChar);
    checkConversion(subject, &BasicNumber::toShort);
    checkConversion(subject, &BasicNumber::toUShort);
    checkConversion(subject, &BasicNumber::toInt);
    checkConversion(subject, &BasicNumber::toUInt);
    checkConversion(subject, &BasicNumber::toLong);
    checkConversion(subject, &BasicNumber::toULong);
    checkConversion(subject, &BasicNumber::toLongLong);
    checkConversion(subject, &BasicNumber::toULongLong);
    checkConversion(subject, &BasicNumber::toFloat);
    checkConversion(subject, &BasicNumber::toDouble);
}

void checkToDecNumber(const Subject& subject) {
    const ExactNumber& model = subject.model;
    const bool isReal = model.form == BasicNumber::ebDouble;
    const std::optional<zo::DecNumber> expected =
        isReal                                  ? decNumber(model.real())
        : model.form == BasicNumber::ebLongLong ? decNumber(static_cast<long long>(model.bits))
                                                : decNumber(model.bits);
    check(expected.has_value() == std::isfinite(model.real()), "what is finite is a decimal");
    try {
        const std::string text = decimalText(subject.number.toDecNumber());
        checkSame(text, expected ? decimalText(*expected) : "none", "toDecNumber()");
    } catch (const zo::RuntimeError&) {
        check(!expected, "what is a decimal is not refused");
    }
}

/// The number with both forms present.
Subject synced(Subject subject) {
    refusedBy([&] { subject.number.type(); });
    subject.model.sync();
    return subject;
}

void checkNumber(const Subject& subject) {
    checkRefusal(subject);
    checkTexts(BasicNumber(subject.number), subject.model);
    const Subject whole = synced(subject);
    checkTexts(BasicNumber(whole.number), whole.model);
    checkConversions(whole);
    checkToDecNumber(whole);
}

void checkComparison(const Subject& left, const Subject& right) {
    ExactNumber leftModel = left.model;
    ExactNumber rightModel = right.model;
    const bool rightRefused = !rightModel.sync();
    const bool leftRefused = !leftModel.sync();
    const std::optional<std::string> refused =
        rightRefused  ? std::optional<std::string>(rightModel.text)
        : leftRefused ? std::optional<std::string>(leftModel.text)
                      : std::nullopt;
    const BasicNumber fresh = left.number;
    const BasicNumber freshRight = right.number;
    check(refusedBy([&] { fresh.compare(freshRight); }) == refused, "a comparison refuses texts");

    const BasicNumber a = synced(left).number;
    const BasicNumber b = synced(right).number;
    const int expected = compared(leftModel, rightModel);
    check(a.compare(b) == expected, "compare() of two numbers");
    check(b.compare(a) == -expected, "compare() the other way around");
    check(a.compare(a) == 0, "compare() with itself");
    if (expected != 0 && std::isfinite(leftModel.real()) && std::isfinite(rightModel.real())) {
        const int exact = signOf(a.toDecNumber().compare(b.toDecNumber()));
        const bool areZeros = leftModel.real() == 0 && rightModel.real() == 0;
        check(exact == (areZeros ? 0 : expected), "what differs, differs as a decimal");
    }
}

template <class T>
void checkTextComparison(T value, const std::string& text) {
    const std::optional<zo::DecNumber> left = decNumber(value);
    const std::optional<ExactDecimal> right = decimalOf(text);
    try {
        const int order = BasicNumber::compare(value, text);
        check(left && right, "only decimals compare");
        check(order == compared(*decimalOf(decimalText(*left)), *right), "compare() with a text");
    } catch (const zo::RuntimeError&) {
        check(!left || !right, "decimals compare");
    }
}

/// The class-level functions and the members that take a plain value.
void checkPlainComparisons(const char* bytes, const std::string& text) {
    long long a = 0;
    unsigned long long b = 0;
    double c = 0;
    std::memcpy(&a, bytes, sizeof(a));
    std::memcpy(&b, bytes + sizeof(a), sizeof(b));
    std::memcpy(&c, bytes + sizeof(a), sizeof(c));
    BasicNumber left;
    left.set(a);
    BasicNumber right;
    right.set(b);
    check(BasicNumber::compare(a, b) == left.compare(right), "signed with unsigned");
    check(left.compare(b) == left.compare(right), "a number with an unsigned value");
    check(right.compare(a) == right.compare(left), "a number with a signed value");
    check(BasicNumber::compare(a, c) == left.compare(c), "signed with double");
    check(BasicNumber::compare(b, c) == right.compare(c), "unsigned with double");
    right.set(c);
    check(left.compare(c) == left.compare(right), "a number with a double");
    checkTextComparison(a, text);
    checkTextComparison(b, text);
    checkTextComparison(c, text);
}

void checkTextSetters(const std::string& text) {
    BasicNumber number;
    number.set(text.data(), text.size());
    checkSame(number.toString(), text, "a text set with its length");
    number.set(text.c_str());
    checkSame(number.toString(), text.c_str(), "a text set up to its zero");
    if (isAscii(text)) {
        const std::wstring wide(text.begin(), text.end());
        number.set(wide);
        checkSame(number.toString(), text, "a wide text");
        number.set(wide.data(), wide.size());
        checkSame(number.toString(), text, "a wide text set with its length");
    }
}

std::vector<std::string> linesOf(const std::string& text) {
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; lines.size() < 3 && std::getline(in, line);) {
        lines.push_back(line);
    }
    return lines;
}

/// Numbers of the widest types, and of one of the others, of the bits that begin at `bytes`.
std::vector<Subject> numbersOf(const char* bytes, size_t other) {
    std::vector<Subject> subjects(4);
    subjects[0].setBits<long long>(bytes);
    subjects[1].setBits<unsigned long long>(bytes);
    subjects[2].setBits<double>(bytes);
    using Setter = void (Subject::*)(const char*);
    static constexpr Setter k_others[] = {
        &Subject::setBits<char>,  &Subject::setBits<unsigned char>,
        &Subject::setBits<short>, &Subject::setBits<unsigned short>,
        &Subject::setBits<int>,   &Subject::setBits<unsigned int>,
        &Subject::setBits<long>,  &Subject::setBits<unsigned long>,
        &Subject::setBits<float>};
    (subjects[3].*k_others[other % std::size(k_others)])(bytes);
    return subjects;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, size_t size) {
    const std::string input(reinterpret_cast<const char*>(data), size);
    std::string bytes = input;
    bytes.resize(std::max<size_t>(bytes.size(), 16));
    const std::vector<std::string> texts = linesOf(input);

    std::vector<Subject> subjects = numbersOf(bytes.data(), size);
    const Subject real = subjects[2];
    for (const std::string& text : texts) {
        subjects.emplace_back().setText(text);
        checkTextSetters(text);
        checkPlainComparisons(bytes.data(), text);
    }
    // Where a text gives no binary value, the one that the number had before stays.
    subjects.push_back(real);
    subjects.back().setText(texts.empty() ? "" : texts.front());
    for (const Subject& left : subjects) {
        checkNumber(left);
        for (const Subject& right : subjects) {
            checkComparison(left, right);
        }
    }
    checkDecimals(texts, real.model.real());
    return 0;
}
