// Part of PreparedReport.h: PrepareReport.

#include "platform/RuntimeError.h"
#include "platform/Services.h"
#include "report-host/layout/PreparedReport.h"
#include "report-host/layout/ReportPages.h"
#include "report-host/template/TemplateFile.h"
#include "report-host/template/TemplateParser.h"

using namespace Qt::StringLiterals;

namespace {

using namespace report;

/// A parsed template with its linked table.
struct FoundTemplate {
    TemplateDefinition definition;
    LinkedTable link;
};

void ThrowFirstError(const QString& report, const QList<TemplateError>& errors) {
    if (!errors.isEmpty())
        throw ReportFailure(u"帳票「%1」の定義に誤りがあります。%2"_s.arg(report, errors.first().Text()));
}

FoundTemplate FindTemplate(const QString& templateFile, const QString& report) {
    try {
        const TemplateFile file(templateFile);
        const std::optional<QString> text = file.Template(report);
        if (!text) throw ReportFailure(u"帳票「%1」が帳票ファイルにありません。"_s.arg(report));
        ParsedTemplate parsed = ParseTemplate(*text);
        ThrowFirstError(report, parsed.errors);
        const QString table = TableOfTemplate(parsed.definition, report);
        const std::optional<LinkedTable> link = file.Link(table);
        if (!link) throw ReportFailure(u"帳票「%1」が使うリンクテーブル「%2」がありません。"_s.arg(report, table));
        return {std::move(parsed.definition), *link};
    } catch (const database::DatabaseError& error) {
        throw ReportFailure(u"帳票ファイルを使えません。%1"_s.arg(platform::TextForPeople(error)));
    }
}

}  // namespace

std::unique_ptr<PreparedReport> PrepareReport(const QString& templateFile, const QString& report) {
    FoundTemplate found = FindTemplate(templateFile, report);
    const LinkedTable& link = found.link;
    try {
        const database::SqliteDatabase source = OpenLinked(link);
        const QStringList existing = ColumnsOf(source.get(), link.source);
        if (existing.isEmpty())
            throw ReportFailure(u"リンクテーブル「%1」の接続先に表「%2」がありません。%3"_s.arg(link.name, link.source,
                                                                                                link.DatabaseFile()));
        QList<TemplateError> errors;
        const QStringList columns = NeededColumns(found.definition, existing, errors);
        ThrowFirstError(report, errors);
        ReportRowStore rows(source.get(), link.source, columns, found.definition.order);
        if (rows.Count() == 0) throw ReportFailure(u"帳票「%1」に印刷するデータがありません。"_s.arg(report));
        const QString today = EraDate(platform::Services().clock->Now().date(), found.definition.eras);
        auto pages = std::make_unique<ReportPages>(std::move(found.definition), columns, std::move(rows), today);
        if (!pages->CanWriteJapanese())
            throw ReportFailure(
                u"日本語の書体がないため、帳票を作れません。IPA フォントをインストールしてください。"_s);
        return pages;
    } catch (const database::DatabaseError& error) {
        throw ReportFailure(u"リンクテーブル「%1」を読めません。%2"_s.arg(link.name, platform::TextForPeople(error)));
    }
}
