#include "support/OutputFixture.h"

using namespace Qt::StringLiterals;

OutputTest::OutputTest() {
    ProgramGlobals& globals = Globals();
    globals.MainForm = &form;
    globals.RowsPerPage = 8;
    globals.ScopeOfficeCode = u"000"_s;
    globals.Layout.ProgramFolder = installation.ProgramFolder();
    globals.Layout.ReportDbKind = FileKind::Accdb;
    globals.Layout.UserReportFolder = installation.ReportFolder();
    SetInitialConditions();
    globals.Conditions.EnrolmentKind = form.Plain(u"在籍区分"_s).maxValue;
    globals.Conditions.StaffClass = form.Plain(u"社員区分"_s).maxValue;
    form.Plain(u"在籍区分名称"_s).text = u"全て"_s;
    form.Plain(u"社員区分名称"_s).text = u"全て"_s;
    form.Plain(u"表示順区分名称"_s).text = u"所属コード順"_s;
}

OutputTest::~OutputTest() { Globals().MainForm = nullptr; }

int OutputTest::AddRow(const QHash<StaffText, QString>& fields, bool marked) {
    const int row = ++Globals().LastRow;
    for (auto field = fields.cbegin(); field != fields.cend(); ++field)
        Globals().Rows.SetText(field.key(), row, field.value());
    Globals().Rows.出力対象.at(static_cast<size_t>(row)) = marked ? 1 : 0;
    return row;
}

void OutputTest::AddRows(int count) {
    for (int i = 1; i <= count; ++i) AddRow({{StaffText::担当者コード, u"%1"_s.arg(i, 5, 10, QChar(u'0'))}});
}

void OutputTest::AddEras() const {
    installation.General().Execute(
        u"INSERT INTO K年号区分 (開始日付, 名称) VALUES ('', '西暦'), ('19261225', '昭和'), ('19890108', '平成')"_s);
}

QList<QStringList> OutputTest::WorkRows(const QString& table) const {
    const QList<QStringList> columns =
        installation.Report().Rows(u"SELECT name FROM pragma_table_info('%1')"_s.arg(table));
    QList<QStringList> rows;
    for (const QStringList& values : installation.Report().Rows(u"SELECT * FROM %1 ORDER BY rowid"_s.arg(table))) {
        QStringList row;
        for (qsizetype i = 0; i < values.size(); ++i)
            if (!values[i].isNull()) row << columns[i].first() + u'=' + values[i];
        rows << row;
    }
    return rows;
}

QStringList OutputTest::WorkColumn(const QString& column, const QString& table) const {
    QStringList values;
    for (const QStringList& row : installation.Report().Rows(u"SELECT %1 FROM %2 ORDER BY rowid"_s.arg(column, table)))
        values << (row.first().isNull() ? u"(null)"_s : row.first());
    return values;
}

DescribedSelection::DescribedSelection(QString window, QString words)
    : window_(std::move(window)), words_(std::move(words)) {
    Globals().SelectionWindows.insert(window_, this);
}

DescribedSelection::~DescribedSelection() { Globals().SelectionWindows.remove(window_); }
