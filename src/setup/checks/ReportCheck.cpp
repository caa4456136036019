// Part of Checks.h: the checks of work tables, report templates and output targets.
#include <QFileInfo>

#include "database/LinkedTables.h"
#include "platform/RuntimeError.h"
#include "report-host/template/TemplateFile.h"
#include "setup/checks/Checks.h"
#include "setup/checks/Printers.h"
#include "setup/schema/GeneralDatabase.h"
#include "setup/storage/Installation.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

const QString kNoPrinting = u"この帳票の印刷とプレビュができません。"_s;

/// One report folder: the common one, or that of a user.
class ReportFolder {
  public:
    ReportFolder(const CheckScope& scope, CheckReport& report, const QString& workTables, const QString& user)
        : scope_(scope), report_(report), workTables_(workTables), user_(user), folder_(QFileInfo(workTables).path()) {}

    void Check(bool own) {
        const DatabaseSubject work = Subject(DatabaseKind::Report), forms = Subject(DatabaseKind::Forms);
        bool whole = CheckDatabase(scope_, report_, workTables_, work);
        if (whole && own) CheckWritable(scope_, report_, workTables_, work);
        if (whole) whole = CheckContent(scope_, report_, workTables_, work);
        const QString expected = folder_ + u"/repfrmdb."_s + QFileInfo(workTables_).suffix();
        QStringList files = TemplateFilesIn(folder_);
        if (!files.contains(expected)) files.prepend(expected);
        for (const QString& file : files)
            if (CheckDatabase(scope_, report_, file, forms) && CheckContent(scope_, report_, file, forms))
                RunCheck(report_, u"帳票ファイル "_s + file + u' ', [&] { CheckTemplates(file, whole); });
    }

  private:
    /// A user's damaged or missing files are copied again at the next start, if the work tables are missing.
    DatabaseSubject Subject(DatabaseKind kind) const {
        DatabaseSubject subject = SubjectOf(scope_, kind);
        if (user_.isEmpty()) return subject;
        subject.remedy = u"次を実行し、この利用者がプログラムを起動してください（共通のものから複写されます）。"_s;
        subject.commands = {u"rm -f -- %1 %2"_s.arg(
            ShellWord(workTables_), ShellWord(folder_ + u"/repfrmdb."_s + QFileInfo(workTables_).suffix()))};
        return subject;
    }

    /// `whole`: the work tables are complete, so that an error is one of the template.
    void CheckTemplates(const QString& path, bool whole) {
        const report::TemplateFile file(path);
        const bool linked = CheckLinks(path, file);
        for (const QString& name : report::StandardTemplateNames()) {
            const std::optional<QString> text = file.Template(name);
            if (!text || !file.Link(name))
                report_.Add({.what = u"帳票ファイル %1 に%2「%3」がありません。"_s.arg(
                                 path, text ? u"リンクテーブル"_s : u"帳票"_s, name),
                             .effect = kNoPrinting,
                             .commands = {ToolCommand(u"upgrade"_s, scope_.root)}});
            else if (whole && linked)
                CheckTemplate(path, file, name, *text);
        }
        CheckTargets(report_, scope_.root, path, file.Names());
    }

    /// True if all tables are linked to the work tables of this folder.
    bool CheckLinks(const QString& path, const report::TemplateFile& file) {
        bool right = true;
        database::Connection connection = OpenSuiteFile(path, database::ConnectMode::Read);
        const auto names =
            RowsOf(connection,
                   u"SELECT 名称 FROM リンクテーブル WHERE 属性 = '%1' ORDER BY rowid"_s.arg(database::kLinkedTable));
        for (const QStringList& row : names.value_or(QList<QStringList>())) {
            const QString linked = file.Link(row[0])->DatabaseFile();
            if (linked == workTables_) continue;
            right = false;
            report_.Add({.what = u"帳票ファイル %1 のテーブル %2 が %4 ではなく %3 にリンクしています。"_s.arg(
                             path, row[0], linked, workTables_),
                         .effect = u"印刷すると、別の出力の内容が印刷されるか、印刷できません。"_s,
                         .commands = {ToolCommand(u"move"_s, scope_.root)}});
        }
        return right;
    }

    void CheckTemplate(const QString& path, const report::TemplateFile& file, const QString& name,
                       const QString& text) {
        const QList<report::TemplateError> errors = report::TemplateErrorsOf(file, name, text);
        if (errors.isEmpty()) return;
        Finding finding{
            .what = u"帳票ファイル %1 の帳票「%2」の定義に誤りが %3 件あります。"_s.arg(path, name).arg(errors.size()),
            .effect = kNoPrinting,
            .remedy =
                u"定義を直して suite-setup forms import で取り込むか、次で標準の帳票に戻してくださ"
                u"い。"_s};
        for (const report::TemplateError& error : errors) finding.entries.append(error.Text());
        const QString options =
            u"--report "_s + ShellWord(name) + (user_.isEmpty() ? QString() : u" --user "_s + ShellWord(user_));
        finding.commands = {ToolCommand(u"repair"_s, scope_.root, options)};
        report_.Add(finding);
    }

    const CheckScope& scope_;
    CheckReport& report_;
    QString workTables_, user_, folder_;
};

}  // namespace

void CheckReports(const CheckScope& scope, CheckReport& report, const QString& workTables, const QString& user,
                  bool own) {
    ReportFolder(scope, report, workTables, user).Check(own);
}

void CheckCommonReports(const CheckScope& scope, CheckReport& report) {
    const QString folder = CommonPlaces(scope.root).report;
    if (QFileInfo(folder).isDir()) CheckReports(scope, report, WorkTablesIn(folder), {}, !scope.HasPrivateCopies());
}

}  // namespace setup
