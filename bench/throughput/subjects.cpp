#include "bench/throughput/subject.h"

std::span<const bench::SubjectEntry> bench::subjects()
{
    static constexpr SubjectEntry Entries[] = {
        {"QsdPSDevice", Kind::Own, makeDevice},
        {"bulk", Kind::Own, makeBulkDevice},
        {"QsdPSPrintDevice", Kind::Own, makePrintDevice},
        {"bulk print", Kind::Own, makeBulkPrintDevice},
#ifdef BENCH_HAVE_ZLIB
        {"Flate", Kind::Own, makeCompressingDevice},
#endif
#ifdef BENCH_HAVE_CAIRO
        {"cairo", Kind::Peer, makeCairo},
#endif
#ifdef BENCH_HAVE_PLOT
        {"libplot", Kind::Peer, makePlot},
#endif
#ifdef BENCH_HAVE_FLTK
        {"FLTK", Kind::Peer, makeFltk},
#endif
        {"formatting", Kind::Floor, makeFormatting},
        {"memcpy", Kind::Floor, makeCopying},
        {"write per line", Kind::Floor, makeLineWriting},
    };
    return Entries;
}
