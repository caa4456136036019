#include "platform/database/ResultTable.h"

#include "platform/RuntimeError.h"

namespace platform {
namespace {

// Kana and kanji have no letter case and stand for most of the names, so they skip the tables of QChar.
char16_t Folded(char16_t unit) {
    if (unit < 0x80) return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit | 0x20) : unit;
    if (unit >= 0x3000 && unit < 0xD800) return unit;
    return QChar(unit).toCaseFolded().unicode();
}

size_t HashOf(QStringView name) {
    size_t hash = 1469598103934665603U;
    for (const QChar unit : name) hash = (hash ^ Folded(unit.unicode())) * 1099511628211U;
    return hash ^ (hash >> 32);
}

bool SameName(QStringView one, QStringView other) {
    if (one.size() != other.size()) return false;
    for (qsizetype i = 0; i < one.size(); ++i) {
        const char16_t a = one[i].unicode();
        const char16_t b = other[i].unicode();
        if (a != b && Folded(a) != Folded(b)) return false;
    }
    return true;
}

}  // namespace

size_t ColumnSet::FreeOrEqualPlace(QStringView name) const {
    const size_t mask = places_.size() - 1;
    size_t place = HashOf(name) & mask;
    while (places_[place] >= 0 && !SameName(Name(places_[place]), name)) place = (place + 1) & mask;
    return place;
}

void ColumnSet::Rehash(size_t places) {
    places_.assign(places, -1);
    for (int column = 0; column < Count(); ++column) {
        int& place = places_[FreeOrEqualPlace(Name(column))];
        if (place < 0) place = column;
    }
}

void ColumnSet::Add(const QString& name, const QString& declaredType) {
    columns_.push_back({name, declaredType.toUpper()});
    if (columns_.size() * 2 > places_.size()) {
        Rehash(qMax<size_t>(16, places_.size() * 2));
        return;
    }
    int& place = places_[FreeOrEqualPlace(name)];
    if (place < 0) place = Count() - 1;
}

int ColumnSet::Find(QStringView name) const { return places_.empty() ? -1 : places_[FreeOrEqualPlace(name)]; }

qsizetype ResultTable::Size() const {
    size_t bytes = sizeof(ResultTable);
    for (const Block& block : blocks_)
        bytes += sizeof(Block) + block.text.capacity() + block.ends.capacity() * sizeof(quint32);
    return static_cast<qsizetype>(bytes);
}

void ResultTable::BeginRow() {
    if (rowCount_++ % kRowsInBlock != 0) return;
    Block block;
    if (!blocks_.empty()) {
        // Blocks of one result are much alike: a little room to spare saves growing by doubling.
        block.text.reserve(blocks_.back().text.size() * 9 / 8);
        block.ends.reserve(blocks_.back().ends.size());
    } else {
        block.ends.reserve(static_cast<size_t>(columns_->Count()));
    }
    blocks_.push_back(std::move(block));
}

void ResultTable::AppendText(QByteArrayView utf8) {
    Block& block = blocks_.back();
    if (block.text.size() + static_cast<size_t>(utf8.size()) >= kNullMark)
        throw DatabaseError(kEngineFailure, QStringLiteral("検索結果が大きすぎます。"));
    block.text.insert(block.text.end(), utf8.begin(), utf8.end());
    block.ends.push_back(static_cast<quint32>(block.text.size()));
}

void ResultTable::AppendNull() {
    Block& block = blocks_.back();
    block.ends.push_back(static_cast<quint32>(block.text.size()) | kNullMark);
}

size_t ResultTable::CellIndex(int row, int column) const {
    return static_cast<size_t>(row % kRowsInBlock) * static_cast<size_t>(columns_->Count()) +
           static_cast<size_t>(column);
}

bool ResultTable::IsNull(int row, int column) const {
    const Block& block = blocks_[static_cast<size_t>(row / kRowsInBlock)];
    return (block.ends[CellIndex(row, column)] & kNullMark) != 0;
}

QString ResultTable::Text(int row, int column) const {
    const Block& block = blocks_[static_cast<size_t>(row / kRowsInBlock)];
    const size_t cell = CellIndex(row, column);
    const quint32 begin = cell == 0 ? 0 : block.ends[cell - 1] & ~kNullMark;
    const quint32 end = block.ends[cell] & ~kNullMark;
    return QString::fromUtf8(block.text.data() + begin, static_cast<qsizetype>(end - begin));
}

void ResultTable::ForgetRowsBefore(int row) {
    for (; forgottenBlocks_ < row / kRowsInBlock; ++forgottenBlocks_)
        blocks_[static_cast<size_t>(forgottenBlocks_)] = Block();
}

}  // namespace platform
