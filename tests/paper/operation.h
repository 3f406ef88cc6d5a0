// The drawing operations, and how alike each comes out on the screen and on paper.
#pragma once

#include "dice.h"
#include "toolkit/port/QsdDisplay.h"
#include "toolkit/port/QsdPalette.h"
#include "toolkit/port/QsdPort.h"

#include <vector>

/// What an operation draws, by which its palette and transformer are chosen.
enum class Kind {
    Line,    ///< lines alone
    Area,    ///< areas alone, solid
    Mixed,   ///< lines and areas
    Picture, ///< bitmaps, whose pixels are those of the page
    Pattern, ///< areas of tiles, which begin at the port's origin
    Text
};

/// What is compared, from much to little.
enum class Look {
    Pixels, ///< every pixel
    Extent, ///< the box of what was painted
    Blank,  ///< that the paper stays empty
    Apart   ///< nothing: the two are known to have little in common
};

/// How alike the screen and one device's paper are.
struct Match {
    Look look;
    /// Columns and rows between a pixel and its equal; between the edges of extents.
    int distance;
    /// Pixels that may differ in place, in parts of the pixels along outlines.
    double share;
    /// Pixels without an equal one nearby, in the same parts: ends of sharp corners, and gaps no wider than a pixel.
    double strays;
    /// What makes the two differ beyond Usual and always will; empty where nothing does.
    const char* reason = "";
};

/// What can be asked of all: a pixel here and there, where an edge goes through its middle or a line is as near to one
/// pixel as to the next.
inline constexpr Match Usual{Look::Pixels, 1, 0.25, 0.01};

/// What an operation is drawn with.
struct Stage {
    QsdPort& port;
    QsdDisplay& display;
    QsdPalette& palette;
    Dice& dice;
};

struct Operation {
    const char* name;
    Kind kind;
    void (*draw)(const Stage&);
    /// Of a QsdPSPrintDevice with patterns as on the screen.
    Match print;
    /// Of a QsdPSDevice.
    Match classic;
    /// Whether calls may follow each other on a page that is compared as a whole.
    bool mixes = true;
    /// The level at which a QsdPSDevice draws it.
    unsigned long classicLevel = 2;

    [[nodiscard]] const Match& match(bool onClassic) const { return onClassic ? classic : print; }
};

/// Every operation.
[[nodiscard]] const std::vector<Operation>& operations();

// Those of one kind, for operations().
[[nodiscard]] std::vector<Operation> lineOperations();
[[nodiscard]] std::vector<Operation> areaOperations();
[[nodiscard]] std::vector<Operation> pictureOperations();
[[nodiscard]] std::vector<Operation> textOperations();
[[nodiscard]] std::vector<Operation> clipOperations();
