#include "ps/QsdPSMatrix.h"

#include "ps/text/QsdPSClassicNumbers_p.h"
#include "ps/text/QsdPSWriter_p.h"
#include "toolkit/geometry/QsdTransformer.h"

void SendTransformer(std::ostream& stream, const QsdTransformer& t)
{
    double x11, x12, x21, x22, x0, y0;
    t.getValues(x11, x12, x21, x22, x0, y0);
    const QsdPSClassicNumbers classicNumbers;
    QsdPSWriter(&stream) << "realmatrix setmatrix " << EOL //
                         << "[" << x11 << QsdSpc() << x21 << QsdSpc() << x12 << QsdSpc() << x22 << QsdSpc() << x0
                         << QsdSpc() << y0 << "] concat" << EOL;
}
