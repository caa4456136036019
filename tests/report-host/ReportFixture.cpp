#include "report-host/ReportFixture.h"

using namespace Qt::StringLiterals;

void ReportTest::AddRow(const QString& table, const WorkRow& row) { AddRows(table, 1, row); }

void ReportTest::AddRows(const QString& table, int count, const WorkRow& row) {
    QStringList names, values;
    for (auto column = row.cbegin(); column != row.cend(); ++column) {
        names.append(u'"' + column.key() + u'"');
        values.append(SqlLiteral(column.value()));
    }
    installation.Report().Execute(
        u"WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1) INSERT INTO %2 (%3) SELECT %4 FROM n"_s
            .arg(QString::number(count), table, names.join(u','), values.join(u',')));
}

WorkRow ReportTest::Recipient() {
    return {{u"コード"_s, u"00001"_s},
            {u"名称B"_s, u"佐藤　一郎 様"_s},
            {u"郵便番号"_s, u"530-0001"_s},
            {u"住所A"_s, u"大阪府大阪市北区"_s},
            {u"住所B"_s, u"梅田９－４－１０"_s},
            {u"住所C"_s, u"緑荘２０５号"_s},
            {u"ユーザ名称"_s, u"見本商事株式会社"_s},
            {u"ユーザ郵便番号"_s, u"100-0005"_s},
            {u"ユーザ住所A"_s, u"東京都千代田区"_s},
            {u"ユーザ電話"_s, u"03-5555-0100"_s}};
}

void ReportTest::AddLabels(int count) {
    const int records = (count + 1) / 2;
    for (int record = 1; record <= std::max(records, count > 0 ? 6 : 0); ++record) {
        WorkRow row{{u"行番号"_s, u"%1"_s.arg(record, 6, 10, QChar(u'0'))}};
        for (int side = 0; side < 2; ++side) {
            const int number = 2 * record - 1 + side;
            if (number > count) break;
            const QString prefix = side == 0 ? u"A列"_s : u"B列"_s;
            row.insert(prefix + u"名称B"_s, u"氏名%1 様"_s.arg(number));
            row.insert(prefix + u"郵便番号"_s, u"530-0001"_s);
        }
        AddRow(kLabels, row);
    }
}

QString ReportTest::TemplateText(const QString& name) const {
    return installation.Forms().Value(u"SELECT 定義 FROM 帳票 WHERE 名称 = "_s + SqlLiteral(name));
}

void ReportTest::SetTemplate(const QString& name, const QString& text) const {
    installation.Forms().Execute(u"UPDATE 帳票 SET 定義 = "_s + SqlLiteral(text) + u" WHERE 名称 = "_s +
                                 SqlLiteral(name));
}

void ReportTest::ChangeTemplate(const QString& name, const QString& from, const QString& to) const {
    QString text = TemplateText(name);
    ASSERT_TRUE(text.contains(from)) << from.toStdString();
    SetTemplate(name, text.replace(from, to));
}

std::unique_ptr<PreparedReport> ReportTest::Prepare(const QString& report) const {
    return PrepareReport(TemplateFile(), report);
}

PdfFile ReportTest::Pdf(const QString& report) {
    const QString path = folder.filePath(report + u".pdf"_s);
    WritePdf(*Prepare(report), path);
    return PdfFile(path);
}

QString ReportTest::Failure(const QString& report) const {
    try {
        Prepare(report);
    } catch (const ReportFailure& failure) {
        return failure.Description();
    }
    return {};
}
