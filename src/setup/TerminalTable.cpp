#include "setup/TerminalTable.h"

#include <QList>
#include <QTextBoundaryFinder>
#include <algorithm>
#include <iterator>

namespace setup {

namespace {

struct Range {
    char32_t first, last;
};

// Code points that terminals draw two columns wide. Half-width kana (U+FF61 to U+FFDC) are excluded.
constexpr Range kWide[] = {
    {0x1100, 0x115F}, {0x2E80, 0x303E},   {0x3041, 0x33FF},   {0x3400, 0x4DBF},   {0x4E00, 0x9FFF},
    {0xA000, 0xA4CF}, {0xAC00, 0xD7A3},   {0xF900, 0xFAFF},   {0xFE30, 0xFE6F},   {0xFF00, 0xFF60},
    {0xFFE0, 0xFFE6}, {0x1F300, 0x1F64F}, {0x1F900, 0x1F9FF}, {0x20000, 0x3FFFD},
};

int CharacterWidth(char32_t character) {
    const QChar::Category category = QChar::category(character);
    if (category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing || category == QChar::Other_Format)
        return 0;
    const auto wide = [&](const Range& range) { return character >= range.first && character <= range.last; };
    return std::any_of(std::begin(kWide), std::end(kWide), wide) ? 2 : 1;
}

QString Blanks(const QString& text, int width) { return QString(qMax(0, width - DisplayWidth(text)), u' '); }

/// The line-breaking rules also allow a break after the hyphens and bars inside a word.
bool IsInsideWord(const QString& text, qsizetype place) {
    const auto narrow = [&](qsizetype at) {
        return !text[at].isSpace() && DisplayWidth(QStringView(text).sliced(at, 1)) < 2;
    };
    return place > 0 && place < text.size() && narrow(place - 1) && narrow(place);
}

QStringList WrapParagraph(const QString& text, int width) {
    QStringList lines{QString()};
    for (const QString& piece : LineBreakPieces(text)) {
        if (DisplayWidth(QString(lines.last() + piece).trimmed()) > width && !lines.last().isEmpty())
            lines.append(QString());
        lines.last() += piece;
    }
    for (QString& line : lines) line = line.trimmed();
    return lines;
}

}  // namespace

int DisplayWidth(QStringView text) {
    int width = 0;
    for (const auto character : text.toUcs4()) width += CharacterWidth(character);
    return width;
}

QString PadRight(const QString& text, int width) { return text + Blanks(text, width); }
QString PadLeft(const QString& text, int width) { return Blanks(text, width) + text; }

QStringList LineBreakPieces(const QString& text) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Line, text);
    QStringList pieces;
    for (qsizetype start = 0; finder.toNextBoundary() >= 0;) {
        if (IsInsideWord(text, finder.position())) continue;
        pieces.append(text.sliced(start, finder.position() - start));
        start = finder.position();
    }
    return pieces;
}

QStringList WrapText(const QString& text, int width) {
    QStringList lines;
    for (const QString& paragraph : text.split(u'\n')) lines += WrapParagraph(paragraph, width);
    return lines;
}

QString StripControlCharacters(const QString& text) {
    QString line = text;
    for (QChar& unit : line)
        if (unit.category() == QChar::Other_Control) unit = u' ';
    return line;
}

QString ReadableTime(const QString& stamp) {
    if (stamp.size() != 15) return stamp;
    return stamp.left(4) + u'/' + stamp.mid(4, 2) + u'/' + stamp.mid(6, 2) + u' ' + stamp.mid(9, 2) + u':' +
           stamp.mid(11, 2) + u':' + stamp.mid(13, 2);
}

}  // namespace setup
