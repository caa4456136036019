#include "setup/TerminalTable.h"

#include <unicode/uchar.h>

#include <QList>
#include <QTextBoundaryFinder>
#include <algorithm>

using namespace Qt::StringLiterals;

namespace setup {

namespace {

/// Columns of a terminal. Characters of ambiguous width are counted as one.
int CharacterWidth(char32_t character) {
    const QChar::Category category = QChar::category(character);
    if (category == QChar::Mark_NonSpacing || category == QChar::Mark_Enclosing || category == QChar::Other_Format)
        return 0;
    const int width = u_getIntPropertyValue(static_cast<UChar32>(character), UCHAR_EAST_ASIAN_WIDTH);
    return width == U_EA_WIDE || width == U_EA_FULLWIDTH ? 2 : 1;
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
    // Most texts of a long table are numbers and times.
    const auto isPlain = [](QChar unit) { return unit >= u' ' && unit <= u'~'; };
    if (std::all_of(text.begin(), text.end(), isPlain)) return static_cast<int>(text.size());
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
    const auto isControl = [](QChar unit) { return unit < u' ' || (unit >= QChar(0x7f) && unit <= QChar(0x9f)); };
    if (std::none_of(text.begin(), text.end(), isControl)) return text;
    QString line = text;
    std::replace_if(line.begin(), line.end(), isControl, u' ');
    return line;
}

void PrintAligned(const QList<QStringList>& lines, QTextStream& out) {
    QList<int> widths;
    for (const QStringList& line : lines) {
        widths.resize(qMax(widths.size(), line.size()));
        for (qsizetype i = 0; i < line.size(); ++i) widths[i] = qMax(widths[i], DisplayWidth(line[i]));
    }
    for (const QStringList& line : lines) {
        out << PadLeft(line.first(), widths.first());
        for (qsizetype i = 1; i < line.size(); ++i)
            out << u"  "_s << (i + 1 == line.size() ? line[i] : PadRight(line[i], widths[i]));
        out << u'\n';
    }
}

QString ReadableTime(const QString& stamp) {
    if (stamp.size() != 15) return stamp;
    return stamp.left(4) + u'/' + stamp.mid(4, 2) + u'/' + stamp.mid(6, 2) + u' ' + stamp.mid(9, 2) + u':' +
           stamp.mid(11, 2) + u':' + stamp.mid(13, 2);
}

}  // namespace setup
