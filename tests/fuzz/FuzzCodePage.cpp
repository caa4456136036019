// Code page 932: lengths agree, decoded text survives a round trip, and only unmappable characters are lost.

#include "fuzz/FuzzInput.h"
#include "text/CodePage932.h"

namespace {

void CheckBytes(const QByteArray& bytes) {
    const QString text = Decode932(bytes);
    const Encoded932 again = Encode932(text);
    Require(again.bytes.size() == ByteLength932(text), "the length told is the length written");
    // Several byte sequences may decode to one character, which is encoded in one way only: compare decoded text.
    if (!text.contains(QChar(0xFFFD))) Require(Decode932(again.bytes) == text, "what was read is read again");
}

void CheckText(const QString& text) {
    const Encoded932 encoded = Encode932(text);
    Require(encoded.bytes.size() == ByteLength932(text), "the length told is the length written");
    Require(encoded.lost <= text.size(), "no more is lost than was there");
    QByteArray behind("x");
    Require(AppendEncoded932(text, behind) == encoded.lost && behind == 'x' + encoded.bytes, "appending is encoding");
    if (encoded.lost == 0) Require(Decode932(encoded.bytes).size() == text.size(), "a character stays one");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    CheckBytes(QByteArray(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size)));
    CheckText(FuzzInput(data, size).Units());
    return 0;
}
