// Report templates as written by an administrator: every text is parsed to its end, and each error has a line number. A
// template without errors is laid out, and a page of it is painted with unusual values.

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <algorithm>
#include <cmath>

#include "fuzz/FuzzInput.h"
#include "report-host/layout/ReportPages.h"
#include "report-host/layout/TextLayout.h"
#include "report-host/render/ElementPainter.h"
#include "report-host/template/TemplateDefinition.h"
#include "report-host/template/TemplateParser.h"

using namespace Qt::StringLiterals;
using namespace report;

namespace {

constexpr int kDots = 64;      // side of the image in pixels; glyphs cost by area
constexpr int kMostRows = 2;   // painted per page
constexpr int kMostParts = 8;  // painted per section

/// Value of a column, derived from its name and the rest of the input.
class Values {
  public:
    explicit Values(QString own) : own_(std::move(own)) {}

    QString Of(const QString& name) const {
        static const QStringList hostile{u""_s,
                                         u"1234567890-９"_s,
                                         u"ガギ\u3099\u309A\u0301\u200D\U000E0100"_s,
                                         u"\u202E右から\u202C\uFFFF"_s + QChar(0xD800),
                                         u"長い住所１２３－４５"_s.repeated(20),
                                         u"a\n\r\n\t\0"_s.repeated(20),
                                         u"iﬃ𠮷㍿"_s.repeated(50),
                                         QString(300'000, u'長')};
        const size_t choice = qHash(name) % static_cast<size_t>(hostile.size() + 1);
        return choice == static_cast<size_t>(hostile.size()) ? own_ : hostile[static_cast<qsizetype>(choice)];
    }

  private:
    QString own_;
};

void CheckFit(FontSet& types, const TemplateElement& element, const QString& text) {
    const QSizeF room = element.style.vertical ? element.place.size().transposed() : element.place.size();
    const FittedText fitted = FitText(types, text, element.style, {room.width(), room.height()});
    Require(std::isfinite(fitted.size) && fitted.size > 0, "a text has a size");
    Require(fitted.stretch >= kNarrowest && fitted.stretch <= 1, "a text is never narrower than can be read");
    Require(!fitted.lines.isEmpty() && fitted.lines.size() <= kMostCharacters + 2, "the lines of a text are bounded");
}

void PaintSection(QPainter& painter, QPointF corner, const TemplateSection& section, const Values& values) {
    // Loading fonts costs more than all pages, so it is done once. Never destroyed, as fonts need the application
    // object.
    static FontSet& types = *new FontSet;
    static ElementPainter& elements = *new ElementPainter(types);
    const FieldText fields = [&values](const QString& name) { return values.Of(name); };
    const QList<TemplateElement> some =
        section.elements.first(std::min<qsizetype>(kMostParts, section.elements.size()));
    for (const TemplateElement& element : some)
        if (element.kind == ElementKind::Text) CheckFit(types, element, Expand(element.text, fields));
    painter.save();
    painter.translate(corner);
    elements.Paint(painter, some, fields);
    painter.restore();
}

void PaintPage(const TemplateDefinition& form, const Values& values) {
    const int rows = RowsPerPage(form);
    Require(rows >= 1 && rows <= kMostCellsOfPage, "the rows of a page are bounded");
    QImage sheet(kDots, kDots, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    painter.scale(kDots / form.page.width(), kDots / form.page.height());
    for (int row = 0; row < std::min(rows, kMostRows); ++row)
        for (const QPointF& cell : CellsOfSlot(form, row).first(1)) PaintSection(painter, cell, form.detail, values);
    PaintSection(painter, {form.margins.left(), form.margins.top()}, form.head, values);
    PaintSection(painter, {form.margins.left(), form.page.height() - form.foot.height}, form.foot, values);
}

}  // namespace

/// Fontconfig never frees its configuration.
extern "C" const char* __lsan_default_suppressions() { return "leak:libfontconfig.so\n"; }

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    static const auto* application = new QGuiApplication(*argc, *argv);
    return application == nullptr;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    FuzzInput input(data, size);
    const QString text = input.Text();
    const qsizetype lines = text.count(u'\n') + 1;
    const ParsedTemplate parsed = ParseTemplate(text);
    for (const TemplateError& error : parsed.errors) {
        Require(error.Line() >= 0 && error.Line() <= lines, "an error has a line of the text");
        Require(!error.Description().isEmpty(), "an error has a description");
    }
    if (parsed.errors.isEmpty()) PaintPage(parsed.definition, Values(input.Text()));
    return 0;
}
