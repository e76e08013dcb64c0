#include <zo/Tessera/CallbackParser.h>

#include <clocale>
#include <stdexcept>
#include <string>

#include <gtest/gtest.h>

#include "support/EventLog.h"
#include "support/HostileLocale.h"

namespace {

using namespace std::string_literals;
using zo::Tessera::CallbackParser;

std::string decimalPoint() {
    return std::localeconv()->decimal_point;
}

/// Has its numbers converted, and asks which decimal point the C library shows meanwhile.
class PointLog : public EventLog {
public:
    PointLog() : EventLog(false) {
        atEvent = [this] {
            points += decimalPoint();
            return 1;
        };
    }
    int cb_double(double value) override {
        isRight = isRight && value == 1.5;
        return EventLog::cb_double(0);
    }

    std::string points;
    bool isRight = true;
};

TEST(ConversionOfNumbers, LetsTheListenerRunInTheLocaleOfTheCaller) {
    const HostileLocale hostile;
    PointLog log;
    CallbackParser parser(&log);
    parser.parse("[1.5,null,1.5]"s);
    EXPECT_EQ(log.points, ",,,,,");
    EXPECT_TRUE(log.isRight);
    EXPECT_EQ(decimalPoint(), ",");
}

TEST(ConversionOfNumbers, LeavesTheLocaleOfTheCallerWhenTheListenerThrows) {
    const HostileLocale hostile;
    PointLog log;
    CallbackParser parser(&log);
    log.atEvent = []() -> int { throw std::runtime_error("enough"); };
    EXPECT_THROW(parser.parse("[1.5]"s), std::runtime_error);
    EXPECT_EQ(decimalPoint(), ",");
}

/// Wants its numbers as text until a null comes.
class LateConversion : public EventLog {
public:
    int cb_null() override {
        m_asText = false;
        parser->setCallbacks();
        return 1;
    }
    int cb_double(double value) override {
        converted = value;
        return 1;
    }
    bool use_number_callback() override { return m_asText; }

    CallbackParser* parser = nullptr;
    double converted = 0;

private:
    bool m_asText = true;
};

TEST(ConversionOfNumbers, DependsOnNoLocaleWhenItBeginsWithinAPiece) {
    const HostileLocale hostile;
    LateConversion log;
    CallbackParser parser(&log);
    log.parser = &parser;
    parser.parse("[1.5,null,1.5]"s);
    EXPECT_EQ(log.events, "start_array;number 1.5;end_array;");
    EXPECT_EQ(log.converted, 1.5);
    EXPECT_EQ(decimalPoint(), ",");
}

TEST(Trampolines, LeaveTheLocaleAloneOutsideOfAPiece) {
    const HostileLocale hostile;
    PointLog log;
    CallbackParser parser(&log);
    CallbackParser::cb_null(&parser);
    EXPECT_EQ(log.points, ",");
    EXPECT_EQ(decimalPoint(), ",");
}

}  // namespace
