#include "ps/print/QsdPSBoxComments_p.h"

#include "ps/text/QsdPSWriter_p.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>

namespace {

/// An extent without coordinates that an integer of 32 bits cannot hold; zeros for an empty one.
QsdPSExtent heldExtent(const QsdPSExtent& extent)
{
    if (extent.isEmpty()) {
        return {0, 0, 0, 0};
    }
    const auto held = [](double value) {
        constexpr double Most = std::numeric_limits<std::int32_t>::max();
        return std::clamp(value, -Most, Most);
    };
    return {held(extent.left), held(extent.bottom), held(extent.right), held(extent.top)};
}

std::int64_t below(double value)
{
    return static_cast<std::int64_t>(std::floor(value));
}

std::int64_t above(double value)
{
    return static_cast<std::int64_t>(std::ceil(value));
}

/// Writes a number of thousandths as a decimal fraction without trailing zeros.
void writeThousandths(QsdPSWriter& out, std::int64_t thousandths)
{
    const std::int64_t positive = std::abs(thousandths);
    out << (thousandths < 0 ? "-" : "") << positive / 1000;
    const auto fraction = static_cast<int>(positive % 1000);
    if (fraction == 0) {
        return;
    }
    const char digits[] = {static_cast<char>('0' + fraction / 100), static_cast<char>('0' + fraction / 10 % 10),
                           static_cast<char>('0' + fraction % 10)};
    const std::string_view text(digits, sizeof digits);
    out << "." << text.substr(0, text.find_last_not_of('0') + 1);
}

/// Writes the smallest box of thousandths of points around an extent.
void writeFineBox(QsdPSWriter& out, const QsdPSExtent& extent)
{
    constexpr double Thousand = 1000;
    const QsdPSExtent box = heldExtent(extent);
    writeThousandths(out, below(box.left * Thousand));
    out << QsdSpc();
    writeThousandths(out, below(box.bottom * Thousand));
    out << QsdSpc();
    writeThousandths(out, above(box.right * Thousand));
    out << QsdSpc();
    writeThousandths(out, above(box.top * Thousand));
}

} // namespace

void QsdPSWriteBox(QsdPSWriter& out, const QsdPSExtent& extent)
{
    const QsdPSExtent box = heldExtent(extent);
    out << below(box.left) << QsdSpc() << below(box.bottom) << QsdSpc() << above(box.right) << QsdSpc()
        << above(box.top);
}

void QsdPSWriteBoxComments(QsdPSWriter& out, std::string_view keyword, std::string_view fineKeyword,
                           const QsdPSExtent& extent)
{
    out << keyword << QsdSpc();
    QsdPSWriteBox(out, extent);
    out << EOL << fineKeyword << QsdSpc();
    writeFineBox(out, extent);
    out << EOL;
}
