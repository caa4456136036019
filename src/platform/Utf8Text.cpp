#include "platform/Utf8Text.h"

namespace platform {
namespace {

constexpr char kByteOrderMark[] = "\xEF\xBB\xBF";
constexpr qsizetype kMarkBytes = 3;

// Removes leading byte order marks and returns their number.
qsizetype TakeMarks(QByteArrayView& bytes) {
    qsizetype marks = 0;
    for (; bytes.startsWith(kByteOrderMark); ++marks) bytes = bytes.sliced(kMarkBytes);
    return marks;
}

QString Marked(qsizetype marks, const QString& rest) {
    return marks == 0 ? rest : QString(marks, QChar::ByteOrderMark) + rest;
}

}  // namespace

QString TextFromUtf8(QByteArrayView utf8) {
    const qsizetype marks = TakeMarks(utf8);
    return Marked(marks, QString::fromUtf8(utf8));
}

QString TextFromLocal8Bit(QByteArrayView bytes) {
    const qsizetype marks = TakeMarks(bytes);
    return Marked(marks, QString::fromLocal8Bit(bytes));
}

QString TextFromUtf16(const char16_t* units, qsizetype count) {
    return QString(reinterpret_cast<const QChar*>(units), count);
}

QString TextOfCharacter(char32_t character) { return QStringView(QChar::fromUcs4(character)).toString(); }

}  // namespace platform
