#include <zo/ListMap.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

#include <gtest/gtest.h>

namespace {

using Map = zo::ListMap<std::string, int>;

constexpr int k_steps = 500;
constexpr int k_keys = 100;

/// Does the same to a map and to a simple model of one, whose sizes go up and down past 48.
class MapAndModel {
public:
    explicit MapAndModel(unsigned seed) : m_random(seed) {}

    void step() {
        if (m_left == 0) {
            m_isGrowing = !m_isGrowing;
            m_left = number(1, 120);
        }
        --m_left;
        const int dice = number(0, 399);
        if (dice == 0) {
            m_map.clear();
            m_model.clear();
            m_order.clear();
        } else if (dice < 8) {
            takeFirst();
        } else if (dice < 12) {
            move();
        } else if ((dice < 300) == m_isGrowing) {
            insert();
        } else {
            erase(dice % 2 == 0);
        }
    }

    void check() const {
        ASSERT_EQ(m_map.size(), m_order.size());
        auto entry = m_map.begin();
        for (const std::string& key : m_order) {
            ASSERT_EQ(entry->first, key);
            ASSERT_EQ(entry->second, m_model.at(key));
            ++entry;
        }
        for (int i = 0; i < k_keys; ++i) {
            const std::string key = keyOf(i);
            const auto found = m_map.find(key);
            ASSERT_EQ(found != m_map.end(), m_model.count(key) == 1) << key;
            ASSERT_TRUE(found == m_map.end() || found->first == key) << key;
        }
    }

    std::size_t size() const { return m_order.size(); }

private:
    int number(int least, int most) {
        return std::uniform_int_distribution<int>(least, most)(m_random);
    }

    // Some alike in their first eight bytes.
    static std::string keyOf(int i) {
        return (i % 3 == 0 ? "a common beginning " : "") + std::to_string(i);
    }

    void insert() {
        const std::string key = keyOf(number(0, k_keys - 1));
        const int value = number(0, 999);
        const auto [entry, isNew] = m_map.insert({key, value});
        ASSERT_EQ(isNew, m_model.emplace(key, value).second);
        ASSERT_EQ(entry->first, key);
        if (isNew) {
            m_order.push_back(key);
        }
    }

    void erase(bool atAPlace) {
        const std::string key = keyOf(number(0, k_keys - 1));
        const auto place = std::find(m_order.begin(), m_order.end(), key);
        if (atAPlace && place != m_order.end()) {
            m_map.erase(m_map.find(key));
        } else {
            ASSERT_EQ(m_map.erase(key), m_model.count(key));
        }
        if (place != m_order.end()) {
            m_order.erase(place);
        }
        m_model.erase(key);
    }

    void takeFirst() {
        if (!m_order.empty()) {
            ASSERT_EQ(m_map.takeFirst(), m_model.at(m_order.front()));
            m_model.erase(m_order.front());
            m_order.erase(m_order.begin());
        }
    }

    void move() {
        Map other = std::move(m_map);
        m_map = Map();
        m_map.swap(other);
    }

    std::mt19937 m_random;
    bool m_isGrowing = false;
    int m_left = 0;  // steps until that changes
    Map m_map;
    std::map<std::string, int> m_model;
    std::vector<std::string> m_order;
};

TEST(RandomListMap, IsAsASimplerOneAtEverySize) {
    int crossings = 0;
    for (unsigned seed = 1; seed <= 10; ++seed) {
        MapAndModel pair(seed);
        for (int step = 0; step < k_steps; ++step) {
            SCOPED_TRACE(testing::Message() << "seed " << seed << ", step " << step);
            const bool wasLarge = pair.size() > 48;
            ASSERT_NO_FATAL_FAILURE(pair.step());
            ASSERT_NO_FATAL_FAILURE(pair.check());
            crossings += wasLarge != (pair.size() > 48) ? 1 : 0;
        }
    }
    EXPECT_GE(crossings, 20);
}

}  // namespace
