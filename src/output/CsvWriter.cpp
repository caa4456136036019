#include "output/CsvWriter.h"

#include <vector>

#include "data/Files.h"
#include "globals/ProgramGlobals.h"
#include "platform/Services.h"
#include "screen/msgお待ち.h"
#include "text/CodePage932.h"

using namespace Qt::StringLiterals;

namespace {

/// At most four decimals without trailing zeros, the precision of currency.
QString PlainDecimals(const QString& value) {
    const qsizetype point = value.indexOf(u'.');
    const bool asStored = !value.contains(u'e', Qt::CaseInsensitive) && (point < 0 || value.size() - point <= 5);
    bool number = false;
    const double amount = value.toDouble(&number);
    if (!number) return value;
    QString text = asStored ? value : QString::number(amount, 'f', 4);
    if (text.contains(u'.')) {
        while (text.endsWith(u'0')) text.chop(1);
        if (text.endsWith(u'.')) text.chop(1);
    }
    return text == u"-0"_s ? u"0"_s : text;
}

/// The minus sign or a blank before the number, one blank after it.
QString NumberForm(const QString& value) {
    const QString plain = PlainDecimals(value);
    return (plain.startsWith(u'-') ? plain : u' ' + plain) + u' ';
}

/// Encodes the file line by line and counts the lost characters.
class CsvFile {
  public:
    explicit CsvFile(platform::OutputFile& file) : file_(file) {}

    void Quoted(QStringView value, bool last) {
        Append(u"\"");
        Append(value);
        Append(last ? u"\"" : u"\",");
    }
    void Plain(QStringView value, bool last) {
        Append(value);
        if (!last) Append(u",");
    }
    void EndLine() {
        Append(u"\r\n");
        file_.Write(line_);
        line_.resize(0);
        lost_.characters += lostInLine_;
        lost_.lines += lostInLine_ > 0 ? 1 : 0;
        lostInLine_ = 0;
    }
    const LostCharacters& Lost() const { return lost_; }

  private:
    void Append(QStringView text) { lostInLine_ += AppendEncoded932(text, line_); }

    platform::OutputFile& file_;
    QByteArray line_;
    LostCharacters lost_;
    int lostInLine_ = 0;
};

bool IsCurrency(const QString& type) { return type == u"CURRENCY"_s || type == u"MONEY"_s; }

std::vector<bool> CurrencyColumns(const database::Recordset& recordset) {
    std::vector<bool> currency;
    currency.reserve(static_cast<size_t>(recordset.FieldCount()));
    for (int column = 0; column < recordset.FieldCount(); ++column)
        currency.push_back(IsCurrency(recordset.FieldType(column)));
    return currency;
}

void WriteHeader(CsvFile& file, const database::Recordset& recordset) {
    const int last = recordset.FieldCount() - 1;
    for (int column = 0; column <= last; ++column) file.Quoted(recordset.FieldName(column), column == last);
    file.EndLine();
}

void WriteField(CsvFile& file, const database::Field& field, bool currency, bool last) {
    if (!currency)
        file.Quoted(field.TextOr(QString()), last);
    else if (!field.IsNull())
        file.Plain(NumberForm(field.Text()), last);
    else
        file.Plain(last ? u" " : u"", last);
}

void WriteRecords(CsvFile& file, database::Recordset& recordset) {
    const std::vector<bool> currency = CurrencyColumns(recordset);
    const int last = recordset.FieldCount() - 1;
    const int count = recordset.RecordCount();
    for (int done = 1; !recordset.AtEOF(); recordset.MoveNext(), ++done) {
        for (int column = 0; column <= last; ++column)
            WriteField(file, recordset.FieldAt(column), currency[static_cast<size_t>(column)], column == last);
        file.EndLine();
        PaintProgress(u"ファイル書込み"_s, done, count);
    }
}

}  // namespace

LostCharacters WriteRecordsetAsCsv(database::Recordset& recordset, const QString& path) {
    EnsureFolderPath(path);
    std::unique_ptr<platform::OutputFile>& output = Globals().TextOutputFile;
    output = platform::Services().files->OpenForOutput(path);
    if (output == nullptr) {
        platform::Services().dialogs->ShowMessage(path + u"が使用中です。"_s);
        return {};
    }
    CsvFile file(*output);
    WriteHeader(file, recordset);
    WriteRecords(file, recordset);
    output->Close();
    output.reset();
    return file.Lost();
}
