#include <memory>
#include <toolkit/x11/QsdXDisplay.h>

int main()
{
    // A server that nobody has.
    return QsdXDisplay::Open("localhost.invalid:0", "consumer") == nullptr ? 0 : 1;
}
