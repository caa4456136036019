#include "setup/JetFile.h"

#include <mdbtools.h>

#include <QFile>
#include <QFileInfo>
#include <algorithm>

#include "platform/RuntimeError.h"

using namespace Qt::StringLiterals;

namespace setup {

namespace {

constexpr size_t kLongestText = size_t{1024} * 1024;
const QString kMidnight = u" 000000"_s;
constexpr int kOffsetMask = 0x1FFF;  // the bits above are marks

[[noreturn]] void Fail(const QString& text) { throw platform::RuntimeError(1, text); }

struct TableCloser {
    void operator()(MdbTableDef* table) const { mdb_free_tabledef(table); }
};
using Table = std::unique_ptr<MdbTableDef, TableCloser>;

MdbColumn* ColumnAt(const MdbTableDef* table, unsigned column) {
    return static_cast<MdbColumn*>(g_ptr_array_index(table->columns, column));
}

/// The cells that the library fills, row by row.
class RowReader {
  public:
    explicit RowReader(MdbTableDef* table) : table_(table), cells_(table->num_cols), lengths_(table->num_cols) {
        for (unsigned column = 0; column < table->num_cols; ++column) {
            cells_[column].resize(kLongestText);
            mdb_bind_column(table, static_cast<int>(column) + 1, cells_[column].data(), &lengths_[column]);
        }
        mdb_rewind_table(table);
    }

    bool Next(QStringList& values) {
        if (mdb_fetch_row(table_) == 0) return false;
        const std::vector<bool> nulls = Nulls();
        values.clear();
        for (unsigned column = 0; column < table_->num_cols; ++column)
            values.append(nulls[column] ? QString() : Text(column));
        return true;
    }

  private:
    // What the library binds is the same for Null and for an empty text: only the row itself tells them apart.
    std::vector<bool> Nulls() const {
        std::vector<MdbField> fields(table_->num_cols);
        std::vector<bool> nulls(table_->num_cols);
        int start = 0;
        size_t size = 0;
        mdb_find_row(table_->entry->mdb, static_cast<int>(table_->cur_row) - 1, &start, &size);
        const int count = mdb_crack_row(table_, start & kOffsetMask, size, fields.data());
        for (int i = 0; i < count; ++i) {
            const MdbField& field = fields[static_cast<size_t>(i)];
            const bool flag = ColumnAt(table_, static_cast<unsigned>(field.colnum))->col_type == MDB_BOOL;
            nulls[static_cast<size_t>(field.colnum)] = field.is_null != 0 && !flag;
        }
        return nulls;
    }

    QString Text(unsigned column) const {
        const auto length = static_cast<size_t>(lengths_[column]);
        if (length + 1 >= kLongestText)
            Fail(u"表 %1 の列 %2 に 1 MB を超える値があります。"_s.arg(
                QString::fromUtf8(table_->name), QString::fromUtf8(ColumnAt(table_, column)->name)));
        QString text = u""_s + QString::fromUtf8(cells_[column].data(), static_cast<qsizetype>(length));
        if (ColumnAt(table_, column)->col_type == MDB_DATETIME && text.endsWith(kMidnight)) text.chop(kMidnight.size());
        return text;
    }

    MdbTableDef* table_;
    std::vector<std::vector<char>> cells_;
    std::vector<int> lengths_;
};

}  // namespace

class JetFile::Handle {
  public:
    explicit Handle(const QString& path) : mdb_(mdb_open(QFile::encodeName(path).constData(), MDB_NOFLAGS)) {
        if (mdb_ == nullptr) Fail(u"%1 は Jet/ACE 形式のデータベースではないか、読めません。"_s.arg(path));
        // Of half a page the library reads on in what it had read before, and may never come to an end.
        if (QFileInfo(path).size() % static_cast<qint64>(mdb_->fmt->pg_size) != 0) {
            mdb_close(mdb_);
            Fail(u"%1 は途中で切れています。"_s.arg(path));
        }
        mdb_set_bind_size(mdb_, kLongestText);
        mdb_set_date_fmt(mdb_, "%Y%m%d %H%M%S");
        mdb_set_shortdate_fmt(mdb_, "%Y%m%d");
    }
    ~Handle() { mdb_close(mdb_); }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    QStringList Tables() const {
        QStringList names;
        const GPtrArray* catalogue = mdb_read_catalog(mdb_, MDB_TABLE);
        if (catalogue == nullptr) Fail(u"表の一覧を読めません。ファイルが壊れています。"_s);
        for (unsigned i = 0; i < catalogue->len; ++i) {
            auto* entry = static_cast<MdbCatalogEntry*>(g_ptr_array_index(catalogue, i));
            if (mdb_is_user_table(entry) != 0) names.append(QString::fromUtf8(entry->object_name));
        }
        return names;
    }

    Table Open(const QString& name) const {
        QByteArray utf8 = name.toUtf8();
        Table table(mdb_read_table_by_name(mdb_, utf8.data(), MDB_TABLE));
        if (table == nullptr || mdb_read_columns(table.get()) == nullptr) Fail(u"表 %1 を読めません。"_s.arg(name));
        return table;
    }

  private:
    MdbHandle* mdb_;
};

JetFile::JetFile(const QString& path) {
    if (!QFileInfo(path).isFile()) Fail(u"%1 がありません。"_s.arg(path));
    // The code page of the oldest format; the later ones hold UTF-16. Whoever has set another one knows why.
    if (qEnvironmentVariableIsEmpty("MDB_JET3_CHARSET")) qputenv("MDB_JET3_CHARSET", "CP932");
    handle_ = std::make_unique<Handle>(path);
    tables_ = handle_->Tables();
}

JetFile::~JetFile() = default;

QStringList JetFile::Columns(const QString& table) const {
    const Table opened = handle_->Open(table);
    QStringList names;
    for (unsigned column = 0; column < opened->num_cols; ++column)
        names.append(QString::fromUtf8(ColumnAt(opened.get(), column)->name));
    return names;
}

void JetFile::ReadRows(const QString& table, const std::function<void(const QStringList&)>& take) const {
    const Table opened = handle_->Open(table);
    RowReader reader(opened.get());
    QStringList values;
    unsigned read = 0;
    for (; reader.Next(values); ++read) take(values);
    // A page that is missing ends the rows without a word.
    if (read != opened->num_rows)
        Fail(u"表 %1 の %2 行のうち %3 行しか読めません。ファイルが壊れています。"_s.arg(table)
                 .arg(opened->num_rows)
                 .arg(read));
}

}  // namespace setup
