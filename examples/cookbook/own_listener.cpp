// Takes what it needs from a text while it arrives, and builds no tree.

#include <cstddef>
#include <iostream>
#include <string>
#include <string_view>

#include <zo/Tessera.h>

using namespace zo::Tessera;

namespace {

/// Adds up the numbers under the key "amount", at any depth.
class AmountListener : public CallbackParserListener {
public:
    long total() const { return m_total; }
    bool isComplete() const { return m_begun && m_depth == 0; }

    int cb_null() override { return valueCame(); }
    int cb_boolean(bool) override { return valueCame(); }
    int cb_number(const char* text, size_t length) override {
        if (m_isAmount) {
            BasicNumber number;
            number.set(text, length);
            m_total += number.as<long>();
        }
        return valueCame();
    }
    int cb_string(const char*, size_t) override { return valueCame(); }
    int cb_start_map() override { return open(); }
    int cb_map_key(const char* text, size_t length) override {
        m_isAmount = std::string_view(text, length) == "amount";
        return k_goOn;
    }
    int cb_end_map() override { return close(); }
    int cb_start_array() override { return open(); }
    int cb_end_array() override { return close(); }
    int cb_error(const char*) override { return k_stop; }  // and the parser throws the message
    int cb_integer(long long) override { return k_stop; }
    int cb_double(double) override { return k_stop; }

private:
    static constexpr int k_goOn = 1;
    static constexpr int k_stop = 0;

    int valueCame() {
        m_begun = true;
        m_isAmount = false;
        return k_goOn;
    }
    int open() {
        ++m_depth;
        return valueCame();
    }
    int close() {
        --m_depth;
        return k_goOn;
    }

    long m_total = 0;
    bool m_isAmount = false;
    bool m_begun = false;
    std::size_t m_depth = 0;
};

}  // namespace

int main() {
    AmountListener listener;
    CallbackParser parser(&listener);
    for (const char* const chunk : {R"([{"amount": 1)", R"(2}, {"amo)", R"(unt": 30}])"}) {
        parser.parse(chunk);
        std::cout << "so far " << listener.total() << '\n';
    }
    parser.parse(" ");  // a number at the very end waits for a character behind it
    std::cout << (listener.isComplete() ? "complete" : "cut off") << '\n';

    // What the listener throws passes through the parser.
    AmountListener another;
    CallbackParser itsParser(&another);
    try {
        itsParser.parse(R"([{"amount": 1.5}])");
    } catch (const ValueOutOfRange<BasicNumber, long>& error) {
        std::cout << error.value().as<std::string>() << " is not whole\n";
    }
}
