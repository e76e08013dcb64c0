#include "groups/Groups.h"

#include <algorithm>

namespace {

std::string key(std::size_t number) {
    return "member" + std::to_string(number);
}

std::string membersText(std::size_t count) {
    std::string text = "{";
    for (std::size_t i = 0; i < count; ++i) {
        text += (i == 0 ? "\"" : ",\"") + key(i) + "\":" + std::to_string(i);
    }
    return text + '}';
}

/// Every number below `count` once, unless that is more than 1000.
std::vector<std::size_t> scattered(std::size_t count) {
    constexpr std::size_t most = 1000;
    constexpr std::size_t step = 7919;  // a prime
    std::vector<std::size_t> numbers(std::min(count, most));
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        numbers[i] = (i + 1) * step % count;
    }
    return numbers;
}

std::string recordsText(std::size_t count) {
    std::string text = "[";
    for (std::size_t i = 0; i < count; ++i) {
        const std::string number = std::to_string(i);
        text += (i == 0 ? "" : ",");
        text += "{\"id\":" + number + ",\"name\":\"n" + number + "\",\"tags\":[\"a\",\"b\"]}";
    }
    return text + ']';
}

constexpr std::size_t k_elementsPerRecord = 6;

}  // namespace

MembersDocument::MembersDocument(std::size_t count)
    : subject("members:" + std::to_string(count), [count] { return membersText(count); }) {
    for (const std::size_t number : scattered(count)) {
        keys.push_back(key(number));
        missingKeys.push_back(key(number + count));
    }
}

ScaleDocument::ScaleDocument(std::size_t count)
    : subject("scale:" + std::to_string(count),
              [count] { return recordsText(count / k_elementsPerRecord); }),
      elements(count / k_elementsPerRecord * k_elementsPerRecord + 1) {}

Groups::Groups(bool large) : m_large(large) {
    for (const std::size_t count : {4UL, 32UL, 10000UL}) {
        members.emplace_back(count);
    }
    const std::size_t largest = large ? 10'000'000 : 1'000'000;
    for (std::size_t size = 1000; size <= largest; size *= 10) {
        sizes.push_back(size);
        scales.emplace_back(size);
    }
}

bool Groups::isFor(const ScaleDocument& scale, const std::string& library) const {
    return m_large || scale.elements < 900'000 || library == "tessera" || library == "yajl";
}

std::string numbersText(std::size_t count) {
    std::string text = "[";
    for (std::size_t i = 0; i < count; ++i) {
        text += (i == 0 ? "" : ",") + std::to_string(i);
    }
    return text + ']';
}
