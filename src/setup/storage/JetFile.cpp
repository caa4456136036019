#include "setup/storage/JetFile.h"

#include <iconv.h>
#include <mdbtools.h>

#include <QFile>
#include <algorithm>
#include <vector>

#include "platform/RuntimeError.h"
#include "setup/storage/TableStream.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr int kOffsetMask = 0x1FFF;  // the upper bits are flags

[[noreturn]] void Fail(const QString& text) { throw platform::RuntimeError(1, text); }

struct TableCloser {
    void operator()(MdbTableDef* table) const { mdb_free_tabledef(table); }
};
using Table = std::unique_ptr<MdbTableDef, TableCloser>;

MdbColumn* ColumnAt(const MdbTableDef* table, unsigned column) {
    return static_cast<MdbColumn*>(g_ptr_array_index(table->columns, column));
}

/// The library returns a pointer into the file for OLE columns, and empty text for unknown types.
bool HasText(const MdbColumn* column) {
    const std::initializer_list<int> types = {MDB_BOOL,  MDB_BYTE,   MDB_INT,      MDB_LONGINT, MDB_MONEY, MDB_FLOAT,
                                              MDB_REPID, MDB_DOUBLE, MDB_DATETIME, MDB_TEXT,    MDB_MEMO,  MDB_NUMERIC};
    return std::find(types.begin(), types.end(), column->col_type) != types.end();
}

std::vector<unsigned> TextColumns(const MdbTableDef* table) {
    std::vector<unsigned> columns;
    for (unsigned column = 0; column < table->num_cols; ++column)
        if (HasText(ColumnAt(table, column))) columns.push_back(column);
    return columns;
}

/// Buffers that the library fills for each row.
class RowReader {
  public:
    explicit RowReader(MdbTableDef* table)
        : table_(table),
          columns_(TextColumns(table)),
          cells_(table->num_cols),
          lengths_(table->num_cols),
          fields_(table->num_cols) {
        for (const unsigned column : columns_) {
            // Not initialised: with a megabyte per text column, most pages are never touched.
            cells_[column] = std::make_unique_for_overwrite<char[]>(kLongestText);
            mdb_bind_column(table, static_cast<int>(column) + 1, cells_[column].get(), &lengths_[column]);
        }
        mdb_rewind_table(table);
    }

    bool Next(QStringList& values) {
        if (mdb_fetch_row(table_) == 0) return false;
        const int columnsInRow = ReadFields();
        values.clear();
        for (const unsigned column : columns_) values.append(Value(column, columnsInRow));
        return true;
    }

  private:
    [[noreturn]] void FailAt(unsigned column, const QString& problem) const {
        Fail(u"表 %1 の列 %2 に%3"_s.arg(QString::fromUtf8(table_->name),
                                         QString::fromUtf8(ColumnAt(table_, column)->name), problem));
    }

    /// The bound buffers do not distinguish Null from empty text, so the raw row is parsed as well. Returns the number
    /// of columns in the row, which includes columns deleted since it was written and lacks those added since.
    int ReadFields() {
        int start = 0;
        size_t size = 0;
        MdbHandle* file = table_->entry->mdb;
        if (mdb_find_row(file, static_cast<int>(table_->cur_row) - 1, &start, &size) != 0) return FailRow();
        const int count = mdb_crack_row(table_, start & kOffsetMask, size, fields_.data());
        return count < 0 ? FailRow() : count;
    }
    [[noreturn]] int FailRow() const { Fail(u"表 %1 に読めない行があります。"_s.arg(QString::fromUtf8(table_->name))); }

    QString Value(unsigned index, int columnsInRow) const {
        const MdbColumn* column = ColumnAt(table_, index);
        const MdbField& field = fields_[index];
        // Beyond the columns of the row the library reads null flags from the bytes that follow the row.
        const bool null = column->col_num >= columnsInRow || field.is_null != 0;
        if (column->col_type == MDB_BOOL) return null ? u"0"_s : u"1"_s;  // a yes/no value is stored in the null flag
        if (null) return {};
        return column->col_type == MDB_DATETIME ? Date(index) : Text(index);
    }

    // Parsed here, since the library formats dates before 1899-12-30 as 19000100.
    QString Date(unsigned index) const {
        MdbHandle* file = table_->entry->mdb;
        const int start = fields_[index].start;
        if (start < 0 || start + static_cast<ssize_t>(sizeof(double)) > file->fmt->pg_size) FailRow();
        const std::optional<QString> text =
            JetDate(mdb_get_double(file->pg_buf, start), mdb_col_is_shortdate(ColumnAt(table_, index)) != 0);
        if (!text) FailAt(index, u"日付でない値があります。"_s);
        return *text;
    }

    QString Text(unsigned index) const {
        const int length = lengths_[index];
        if (length < 0 || length + 1 >= kLongestText) FailAt(index, u" 1 MB を超える値があります。"_s);
        return u""_s + QString::fromUtf8(cells_[index].get(), length);
    }

    MdbTableDef* table_;
    std::vector<unsigned> columns_;
    std::vector<std::unique_ptr<char[]>> cells_;
    std::vector<int> lengths_;
    std::vector<MdbField> fields_;
};

}  // namespace

class JetFile::Handle {
  public:
    explicit Handle(const QString& path) : mdb_(mdb_open(QFile::encodeName(path).constData(), MDB_NOFLAGS)) {
        if (mdb_ == nullptr) Fail(u"%1 の先頭を読めません。ファイルが壊れています。"_s.arg(path));
        mdb_set_bind_size(mdb_, kLongestText);
        DecodeWholeTexts();
    }
    ~Handle() { mdb_close(mdb_); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    QStringList Tables() const {
        QStringList names;
        bool complete = false;
        const GPtrArray* catalogue = mdb_read_catalog(mdb_, MDB_TABLE);
        for (unsigned i = 0; catalogue != nullptr && i < catalogue->len; ++i) {
            auto* entry = static_cast<MdbCatalogEntry*>(g_ptr_array_index(catalogue, i));
            complete = complete || qstrcmp(entry->object_name, "MSysObjects") == 0;
            if (mdb_is_user_table(entry) != 0) names.append(QString::fromUtf8(entry->object_name));
        }
        // The catalogue lists itself, so without its own entry it is incomplete. The library does not report missing
        // pages.
        if (!complete) Fail(u"表の一覧を読めません。ファイルが壊れています。"_s);
        return names;
    }

    Table Open(const QString& name) const {
        QByteArray utf8 = name.toUtf8();
        Table table(mdb_read_table_by_name(mdb_, utf8.data(), MDB_TABLE));
        if (table == nullptr || table->num_cols > kMostColumns || mdb_read_columns(table.get()) == nullptr)
            Fail(u"表 %1 を読めません。ファイルが壊れています。"_s.arg(name));
        return table;
    }

  private:
    /// Replaces the library's decoder: it uses UCS-2, in which surrogate pairs become question marks, or code page
    /// 1252.
    void DecodeWholeTexts() {
        const QByteArray jet3 = qEnvironmentVariableIsEmpty("MDB_JET3_CHARSET") ? "CP932" : qgetenv("MDB_JET3_CHARSET");
        iconv_t decoder = iconv_open("UTF-8", IS_JET3(mdb_) ? jet3.constData() : "UTF-16LE");
        if (decoder == reinterpret_cast<iconv_t>(-1))
            Fail(u"文字コード %1 は使えません。"_s.arg(QString::fromUtf8(jet3)));
        iconv_close(mdb_->iconv_in);
        mdb_->iconv_in = decoder;
    }

    MdbHandle* mdb_;
};

JetFile::JetFile(const QString& path) {
    CheckJetFile(path);
    handle_ = std::make_unique<Handle>(path);
    tables_ = handle_->Tables();
}

JetFile::~JetFile() = default;

QStringList JetFile::Columns(const QString& table) const {
    const Table opened = handle_->Open(table);
    QStringList names;
    for (const unsigned column : TextColumns(opened.get()))
        names.append(QString::fromUtf8(ColumnAt(opened.get(), column)->name));
    return names;
}

void JetFile::ReadRows(const QString& table, const std::function<void(const QStringList&)>& take) const {
    const Table opened = handle_->Open(table);
    RowReader reader(opened.get());
    QStringList values;
    unsigned read = 0;
    for (; reader.Next(values); ++read) take(values);
    // At a missing page the library ends the rows silently.
    if (read != opened->num_rows)
        Fail(u"表 %1 の %2 行のうち %3 行しか読めません。ファイルが壊れています。"_s.arg(table)
                 .arg(opened->num_rows)
                 .arg(read));
}

}  // namespace setup
