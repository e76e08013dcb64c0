#ifndef ZO_TESSERA_SRC_GENERATION_YAJLGENERATOR_H
#define ZO_TESSERA_SRC_GENERATION_YAJLGENERATOR_H

#include <yajl/yajl_gen.h>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include <zo/Tessera/BasicNumber.h>

#include "support/BlockPool.h"

namespace zo::Tessera {

/// yajl's generator at any depth.
///
/// A handle of yajl's keeps its state in an array of `YAJL_MAX_DEPTH` levels; it refuses to open a
/// container too many, but counts it, and from then on works past its array. Closing one too many
/// wraps its depth. So the open containers are counted here, a handle is never driven past either
/// end, and each container that is too deep for the current handle gets a further one. The text of
/// a part does not depend on its depth, for nothing is indented.
///
/// Every event returns yajl's status of it. Out of memory it throws `std::bad_alloc`, and has
/// either not happened or left the generator as new, its text lost.
class YajlGenerator {
public:
    /// `indent` is not copied and must outlive the generator.
    explicit YajlGenerator(const char* indent);

    void setBeautify(bool beautify);

    int null();
    int boolean(bool value);
    int integer(long long value);
    int real(double value);
    int number(std::string_view text);
    int string(const std::string& text);
    int openMap();
    int closeMap();
    int openArray();
    int closeArray();

    /// Calls `write(data, length)` with each piece of the text gathered since the last `clear`.
    template <class Write>
    void writeText(const Write& write) const {
        if (!m_finished.empty()) {
            write(m_finished.data(), m_finished.size());
        }
        const Text text = textOf(m_levels.back());
        if (text.length != 0) {
            write(text.data, text.length);
        }
    }
    bool hasText() const;
    void clear();

private:
    struct HandleDeleter {
        void operator()(yajl_gen handle) const { yajl_gen_free(handle); }
    };
    /// A handle, and how many containers are open in it.
    struct Level {
        std::unique_ptr<yajl_gen_t, HandleDeleter> handle;
        size_t depth = 0;
    };
    struct Text {
        const char* data;
        size_t length;
    };
    using ContainerEvent = yajl_gen_status (*)(yajl_gen);

    static Text textOf(const Level& level);
    Level makeLevel();
    void configure(const Level& level) const;
    yajl_gen current() const { return m_levels.back().handle.get(); }
    template <class... Arguments>
    yajl_gen_status send(yajl_gen_status (*event)(yajl_gen, Arguments...), Arguments... arguments);
    void startAnew() noexcept;
    int open(ContainerEvent event);
    int openInFurtherHandle(ContainerEvent event);
    int close(ContainerEvent event);
    void reserveRoomToFinish();
    void finish(size_t length);

    const char* m_indent;
    bool m_beautify = false;
    BlockPool m_memory;
    std::vector<Level> m_levels;  // from the outermost inward, never empty; the last is configured
    std::string m_finished;       // what comes before the current handle's text
};

}  // namespace zo::Tessera

#endif
