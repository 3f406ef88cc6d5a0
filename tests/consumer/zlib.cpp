#include <sstream>
#include <toolkit/zlib/QsdFlateEncoder.h>

int main()
{
    std::ostringstream data;
    QsdFlateEncoder encoder(&data);
    encoder.startData();
    encoder.putBytes(5, reinterpret_cast<const unsigned char*>("paper"));
    encoder.endData();
    return data.str().empty() ? 1 : 0;
}
