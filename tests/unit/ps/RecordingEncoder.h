// An encoder that tells how it was called.
#pragma once

#include "toolkit/encoder/QsdPostScriptEncoder.h"

#include <string>

/// Appends each call to a text: "start", a byte in hexadecimal, several in brackets, "end", separated by blanks.
class RecordingEncoder : public QsdPostScriptEncoder {
public:
    explicit RecordingEncoder(std::string& recorded) : _recorded(recorded) {}

    void putByte(unsigned char byte) override { add(hex(byte)); }
    void putBytes(unsigned long count, const unsigned char* bytes) override
    {
        std::string text = "[";
        for (unsigned long i = 0; i < count; ++i) {
            text.append(i == 0 ? "" : " ").append(hex(bytes[i]));
        }
        add(text.append("]"));
    }
    void startData() override { add("start"); }
    void endData() override { add("end"); }
    void setStream(std::ostream*) override {}
    [[nodiscard]] QsString getDecoderString() const override { return QsString("/Recorded filter"); }

private:
    static std::string hex(unsigned char byte)
    {
        const char* const digits = "0123456789ABCDEF";
        return {digits[byte >> 4], digits[byte & 15]};
    }
    void add(const std::string& call) { _recorded.append(_recorded.empty() ? "" : " ").append(call); }

    std::string& _recorded;
};
