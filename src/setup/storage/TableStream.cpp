#include "setup/storage/TableStream.h"

#include <QStringDecoder>
#include <QtEndian>

#include "platform/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace setup {
namespace {

constexpr quint32 kNull = 0xFFFFFFFF;

[[noreturn]] void Refuse() { throw platform::RuntimeError(1, u"読み取りの結果が壊れています。"_s); }

void AppendLength(QByteArray& bytes, quint32 length) {
    char head[kFrameHead];
    qToLittleEndian(length, head);
    bytes.append(head, kFrameHead);
}

QString TextOf(QByteArrayView bytes) {
    if (bytes.contains('\0')) Refuse();
    QStringDecoder decoder(QStringDecoder::Utf8,
                           QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    QString text = u""_s + decoder.decode(bytes);
    if (decoder.hasError()) Refuse();
    return text;
}

bool IsKind(char kind) { return QByteArrayView("QNREF").contains(kind); }

}  // namespace

QByteArray EncodeFrame(const Frame& frame) {
    QByteArray body(1, static_cast<char>(frame.kind));
    for (const QString& text : frame.texts) {
        const QByteArray utf8 = text.toUtf8();
        AppendLength(body, text.isNull() ? kNull : static_cast<quint32>(utf8.size()));
        body.append(utf8);
    }
    if (body.size() > kLongestFrame) throw platform::RuntimeError(1, u"64 MB を超える行があります。"_s);
    QByteArray whole;
    AppendLength(whole, static_cast<quint32>(body.size()));
    return whole + body;
}

qsizetype FrameLength(const QByteArray& head) {
    if (head.size() != kFrameHead) Refuse();
    const auto length = qFromLittleEndian<quint32>(head.constData());
    if (length == 0 || length > kLongestFrame) Refuse();
    return length;
}

Frame ParseFrame(const QByteArray& body) {
    if (body.isEmpty() || !IsKind(body.front())) Refuse();
    Frame frame{static_cast<FrameKind>(body.front()), {}};
    QByteArrayView rest = QByteArrayView(body).sliced(1);
    while (!rest.isEmpty()) {
        if (rest.size() < kFrameHead || frame.texts.size() >= kMostTables) Refuse();
        const auto length = qFromLittleEndian<quint32>(rest.data());
        rest = rest.sliced(kFrameHead);
        if (length == kNull) {
            frame.texts.append(QString());
            continue;
        }
        if (length > kLongestText || length > rest.size()) Refuse();
        frame.texts.append(TextOf(rest.first(length)));
        rest = rest.sliced(length);
    }
    return frame;
}

QStringList ParseNames(const Frame& frame, qsizetype most) {
    if (frame.kind != FrameKind::Names || frame.texts.size() > most) Refuse();
    for (const QString& name : frame.texts)
        if (name.isEmpty()) Refuse();
    return frame.texts;
}

qint64 ParseCount(const Frame& frame) {
    if (frame.kind != FrameKind::End || frame.texts.size() != 1) Refuse();
    bool good = false;
    const qint64 count = frame.texts.first().toLongLong(&good);
    if (!good || count < 0) Refuse();
    return count;
}

}  // namespace setup
