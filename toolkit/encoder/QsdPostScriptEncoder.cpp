#include "toolkit/encoder/QsdPostScriptEncoder.h"

QsString QsdPostScriptEncoder::GetFullDecoderString(const QsdPostScriptEncoder* encoder)
{
    return encoder == nullptr ? QsString() : encoder->getDecoderString();
}
