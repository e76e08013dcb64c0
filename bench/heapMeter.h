#ifndef ZO_TESSERA_BENCH_HEAPMETER_H
#define ZO_TESSERA_BENCH_HEAPMETER_H

struct HeapUse {
    long bytes = 0;   // of the blocks that are held, with 8 bytes of header each
    long blocks = 0;  // that are held
    long peak = 0;    // the most bytes that were held at once
};

/// Counts what the program takes from the heap and has not given back since the meter was made: all
/// malloc's family goes through this program's own functions, which only count meanwhile. One meter
/// at a time, and one thread.
class HeapMeter {
public:
    HeapMeter();
    ~HeapMeter();
    HeapMeter(const HeapMeter&) = delete;
    HeapMeter& operator=(const HeapMeter&) = delete;

    HeapUse use() const;
};

#endif
