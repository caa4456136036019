#include "support/PdfFile.h"

#include <QProcess>
#include <QRegularExpression>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace {

constexpr double kMillimetresPerPoint = 25.4 / 72;

QByteArray Run(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(program, arguments);
    if (!process.waitForFinished(60000) || process.exitCode() != 0)
        throw std::runtime_error((program + u": "_s).toStdString() + process.readAllStandardError().toStdString());
    return process.readAllStandardOutput();
}

}  // namespace

QList<PdfWord> PdfFile::Words() const {
    static const QRegularExpression mark(
        uR"re(<page |<word xMin="([\d.-]+)" yMin="([\d.-]+)" xMax="([\d.-]+)" yMax="([\d.-]+)">([^<]*)<)re"_s);
    QList<PdfWord> words;
    int page = -1;
    auto matches = mark.globalMatch(QString::fromUtf8(Run(u"pdftotext"_s, {u"-bbox"_s, path_, u"-"_s})));
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        if (match.captured(5).isNull()) {
            ++page;
            continue;
        }
        const auto at = [&](int i) { return match.captured(i).toDouble() * kMillimetresPerPoint; };
        words.append({page, match.captured(5), QRectF(QPointF(at(1), at(2)), QPointF(at(3), at(4)))});
    }
    return words;
}

QString PdfFile::Text(int page) const {
    QStringList texts;
    for (const PdfWord& word : Words())
        if (word.page == page) texts.append(word.text);
    return texts.join(u' ');
}

QList<PdfWord> PdfFile::Find(int page, const QString& text) const {
    QList<PdfWord> found;
    for (const PdfWord& word : Words())
        if (word.page == page && word.text.contains(text)) found.append(word);
    return found;
}

QList<PdfFile::Font> PdfFile::Fonts() const {
    QList<Font> fonts;
    const QStringList lines = QString::fromUtf8(Run(u"pdffonts"_s, {path_})).split(u'\n', Qt::SkipEmptyParts);
    for (const QString& line : lines.mid(2)) {
        // Columns: name type encoding emb sub uni object ID. The type may contain a blank.
        const QStringList words = line.simplified().split(u' ');
        fonts.append({words.first(), words.value(words.size() - 5) == u"yes"_s});
    }
    return fonts;
}

int PdfFile::Pages() const {
    static const QRegularExpression line(uR"(Pages:\s+(\d+))"_s);
    return line.match(QString::fromUtf8(Run(u"pdfinfo"_s, {path_}))).captured(1).toInt();
}

QImage PdfFile::Picture(int page) const {
    const QString number = QString::number(page + 1), dots = QString::number(kDotsPerMillimetre * 25.4);
    const QByteArray png =
        Run(u"pdftoppm"_s, {u"-png"_s, u"-gray"_s, u"-r"_s, dots, u"-f"_s, number, u"-l"_s, number, path_});
    return QImage::fromData(png).convertToFormat(QImage::Format_Grayscale8);
}

QRectF InkWithin(const QImage& picture, const QRectF& where) {
    constexpr double dots = PdfFile::kDotsPerMillimetre;
    const QRect area = QRectF(where.topLeft() * dots, where.size() * dots).toRect() & picture.rect();
    QRect ink;
    for (int y = area.top(); y <= area.bottom(); ++y)
        for (int x = area.left(); x <= area.right(); ++x)
            if (qGray(picture.pixel(x, y)) < 128) ink |= QRect(x, y, 1, 1);
    return QRectF(QPointF(ink.topLeft()) / dots, QSizeF(ink.size()) / dots);
}
