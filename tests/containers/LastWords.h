#ifndef ZO_TESSERA_TESTS_CONTAINERS_LASTWORDS_H
#define ZO_TESSERA_TESTS_CONTAINERS_LASTWORDS_H

#include <functional>
#include <utility>

#include <zo/Tessera/Null.h>

/// A null that does something when it is deleted.
class LastWords : public zo::Tessera::Null {
public:
    explicit LastWords(std::function<void()> say) : m_say(std::move(say)) {}
    LastWords(const LastWords&) = delete;
    ~LastWords() override { m_say(); }

private:
    std::function<void()> m_say;
};

#endif
