#include "platform/RuntimeError.h"
#include "platform/Services.h"
#include "report-host/layout/PreparedReport.h"
#include "report-host/layout/ReportPages.h"
#include "report-host/layout/SqliteQuery.h"
#include "report-host/template/EraToday.h"
#include "report-host/template/TemplateCheck.h"
#include "report-host/template/TemplateOfReport.h"

using namespace Qt::StringLiterals;

namespace {

using namespace report;

/// A parsed template with its linked table.
struct FoundForm {
    FormDefinition form;
    LinkedTable link;
};

void RefuseMistakes(const QString& report, const QList<TemplateError>& mistakes) {
    if (!mistakes.isEmpty())
        throw ReportFailure(u"帳票「%1」の定義に誤りがあります。%2"_s.arg(report, mistakes.first().Text()));
}

FoundForm FindForm(const QString& formsFile, const QString& report) {
    try {
        const FormsFile file(formsFile);
        const std::optional<QString> text = file.Form(report);
        if (!text) throw ReportFailure(u"帳票「%1」が帳票ファイルにありません。"_s.arg(report));
        ParsedForm parsed = ParseForm(*text);
        RefuseMistakes(report, parsed.mistakes);
        const QString table = TableOfForm(parsed.form, report);
        const std::optional<LinkedTable> link = file.Link(table);
        if (!link) throw ReportFailure(u"帳票「%1」が使うリンクテーブル「%2」がありません。"_s.arg(report, table));
        return {std::move(parsed.form), *link};
    } catch (const database::DatabaseError& error) {
        throw ReportFailure(u"帳票ファイルを使えません。%1"_s.arg(platform::TextForPeople(error)));
    }
}

}  // namespace

std::unique_ptr<PreparedReport> PrepareReport(const QString& formsFile, const QString& report) {
    FoundForm found = FindForm(formsFile, report);
    const LinkedTable& link = found.link;
    try {
        const database::SqliteDatabase source = OpenLinked(link);
        const QStringList existing = ColumnsOf(source.get(), link.source);
        if (existing.isEmpty())
            throw ReportFailure(u"リンクテーブル「%1」の接続先に表「%2」がありません。%3"_s.arg(link.name, link.source,
                                                                                                link.DatabaseFile()));
        QList<TemplateError> mistakes;
        const QStringList columns = NeededColumns(found.form, existing, mistakes);
        RefuseMistakes(report, mistakes);
        ReportRowStore rows(source.get(), link.source, columns, found.form.order);
        if (rows.Count() == 0) throw ReportFailure(u"帳票「%1」に印刷するデータがありません。"_s.arg(report));
        const QString today = EraDate(platform::Services().clock->Now().date(), found.form.eras);
        auto pages = std::make_unique<ReportPages>(std::move(found.form), columns, std::move(rows), today);
        if (!pages->CanWriteJapanese())
            throw ReportFailure(
                u"日本語の書体がないため、帳票を作れません。IPA フォントをインストールしてください。"_s);
        return pages;
    } catch (const database::DatabaseError& error) {
        throw ReportFailure(u"リンクテーブル「%1」を読めません。%2"_s.arg(link.name, platform::TextForPeople(error)));
    }
}
