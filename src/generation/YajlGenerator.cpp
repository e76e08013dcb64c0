#include "generation/YajlGenerator.h"

#include <new>
#include <utility>

#include "support/classicLocale.h"

namespace zo::Tessera {

namespace {

// yajl refuses the opening that would reach YAJL_MAX_DEPTH.
constexpr size_t k_levelsPerHandle = YAJL_MAX_DEPTH - 1;

// The longest text that yajl puts before a value or behind the last one: a comma or a colon, a
// blank or a line break, and a closing bracket.
constexpr size_t k_punctuationLength = 8;

}  // namespace

YajlGenerator::YajlGenerator(const char* indent) : m_indent(indent) {
    m_levels.push_back(makeLevel());
}

void YajlGenerator::setBeautify(bool beautify) {
    m_beautify = beautify;
    configure(m_levels.back());
}

int YajlGenerator::null() {
    return send(yajl_gen_null);
}

int YajlGenerator::boolean(bool value) {
    return send(yajl_gen_bool, value ? 1 : 0);
}

int YajlGenerator::integer(long long value) {
    return send(yajl_gen_integer, value);
}

int YajlGenerator::real(double value) {
    const ClassicCLocaleScope classic;
    return send(yajl_gen_double, value);
}

int YajlGenerator::number(std::string_view text) {
    return send(yajl_gen_number, text.data(), text.size());
}

int YajlGenerator::string(const std::string& text) {
    const auto* const bytes = reinterpret_cast<const unsigned char*>(text.data());
    return send(yajl_gen_string, bytes, text.size());
}

int YajlGenerator::openMap() {
    return open(yajl_gen_map_open);
}

int YajlGenerator::closeMap() {
    return close(yajl_gen_map_close);
}

int YajlGenerator::openArray() {
    return open(yajl_gen_array_open);
}

int YajlGenerator::closeArray() {
    return close(yajl_gen_array_close);
}

bool YajlGenerator::hasText() const {
    return !m_finished.empty() || textOf(m_levels.back()).length != 0;
}

void YajlGenerator::clear() {
    m_finished.clear();
    yajl_gen_clear(current());
}

YajlGenerator::Text YajlGenerator::textOf(const Level& level) {
    const unsigned char* bytes = nullptr;
    size_t length = 0;
    yajl_gen_get_buf(level.handle.get(), &bytes, &length);
    return {reinterpret_cast<const char*>(bytes), length};
}

YajlGenerator::Level YajlGenerator::makeLevel() {
    const yajl_alloc_funcs memory = {BlockPool::allocate, BlockPool::reallocate, BlockPool::release,
                                     &m_memory};
    Level level;
    level.handle.reset(yajl_gen_alloc(&memory));
    if (!level.handle) {
        throw std::bad_alloc();
    }
    configure(level);
    return level;
}

void YajlGenerator::configure(const Level& level) const {
    yajl_gen_config(level.handle.get(), yajl_gen_indent_string, m_indent);
    yajl_gen_config(level.handle.get(), yajl_gen_beautify, m_beautify ? 1 : 0);
}

/// Hands an event to the current handle. Where that runs out of memory in the middle of it, its
/// state is not known any more.
template <class... Arguments>
yajl_gen_status YajlGenerator::send(yajl_gen_status (*event)(yajl_gen, Arguments...),
                                    Arguments... arguments) {
    try {
        return event(current(), arguments...);
    } catch (...) {
        startAnew();
        throw;
    }
}

void YajlGenerator::startAnew() noexcept {
    m_levels.erase(m_levels.begin() + 1, m_levels.end());
    m_levels.front().depth = 0;
    configure(m_levels.front());
    yajl_gen_reset(current(), nullptr);
    clear();
}

int YajlGenerator::open(ContainerEvent event) {
    if (m_levels.back().depth == k_levelsPerHandle) {
        return openInFurtherHandle(event);
    }
    const yajl_gen_status status = send(event);
    if (status == yajl_gen_status_ok) {
        ++m_levels.back().depth;
    }
    return status;
}

int YajlGenerator::openInFurtherHandle(ContainerEvent event) {
    // What can fail and would leave the two handles at odds comes first.
    Level further = makeLevel();
    if (m_levels.size() == m_levels.capacity()) {
        m_levels.reserve(2 * m_levels.size());
    }
    reserveRoomToFinish();
    // A number without text stands for the container: it writes what belongs before a value.
    const int status = number(std::string());
    if (status != yajl_gen_status_ok) {
        return status;
    }
    finish(textOf(m_levels.back()).length);
    m_levels.push_back(std::move(further));
    return open(event);
}

int YajlGenerator::close(ContainerEvent event) {
    Level& level = m_levels.back();
    if (level.depth == 0) {
        return yajl_gen_generation_complete;
    }
    const bool ofFurtherHandle = m_levels.size() > 1 && level.depth == 1;
    if (ofFurtherHandle) {
        reserveRoomToFinish();
    }
    const yajl_gen_status status = send(event);
    if (status != yajl_gen_status_ok) {
        return status;
    }
    --level.depth;
    if (ofFurtherHandle) {
        // To its handle the document ends here, and yajl ends a document with a line break.
        finish(textOf(level).length - (m_beautify ? 1 : 0));
        m_levels.pop_back();
        configure(m_levels.back());
    }
    return status;
}

/// Makes room for the current handle's text and for what one more event adds to it.
void YajlGenerator::reserveRoomToFinish() {
    m_finished.reserve(m_finished.size() + textOf(m_levels.back()).length + k_punctuationLength);
}

/// Takes over the first `length` bytes of the current handle's text.
void YajlGenerator::finish(size_t length) {
    m_finished.append(textOf(m_levels.back()).data, length);
    yajl_gen_clear(current());
}

}  // namespace zo::Tessera
