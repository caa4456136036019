#include "database/ResultTable.h"

#include <algorithm>
#include <cstring>

#include "database/DatabaseError.h"
#include "platform/Utf8Text.h"

namespace database {
namespace {

// Kana and kanji, most of the characters in column names, have no case; skip QChar's table lookup.
char16_t Folded(char16_t unit) {
    if (unit < 0x80) return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit | 0x20) : unit;
    if (unit >= 0x3000 && unit < 0xD800) return unit;
    return QChar(unit).toCaseFolded().unicode();
}

// Upper and lower case differ only in these bits, in ASCII, full width, Greek and Cyrillic.
constexpr quint32 kCaseBits = 0x60;

size_t HashOf(QStringView name) {
    size_t hash = 1469598103934665603U;
    for (const QChar unit : name) hash = (hash ^ (unit.unicode() & ~kCaseBits)) * 1099511628211U;
    return hash ^ (hash >> 32);
}

bool SameName(QStringView one, QStringView other) {
    if (one.size() != other.size()) return false;
    if (std::memcmp(one.utf16(), other.utf16(), static_cast<size_t>(one.size()) * sizeof(char16_t)) == 0) return true;
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
    size_t bytes = sizeof(ResultTable) + static_cast<size_t>(columns_->Count()) * sizeof(LastText);
    for (const Block& block : blocks_)
        bytes += sizeof(Block) + block.text.capacity() + block.ends.capacity() * sizeof(quint32);
    return static_cast<qsizetype>(bytes);
}

void ResultTable::RefuseCell() {
    throw DatabaseError(kStatementFailure, QStringLiteral("値が長すぎます (16 MiB まで)。"));
}

void ResultTable::BeginRow() {
    if (!blocks_.empty() && bytesBefore_ + blocks_.back().used > mostBytes_)
        throw DatabaseError(kEngineFailure, QStringLiteral("検索結果が大きすぎます。"));
    if (rowCount_++ % kRowsInBlock != 0) return;
    if (!blocks_.empty()) bytesBefore_ += blocks_.back().used;
    Block block;
    if (!blocks_.empty()) {
        // Blocks of one result have similar sizes: 1/8 extra usually avoids reallocation.
        block.text.resize(blocks_.back().used * 9 / 8);
        block.ends.reserve(blocks_.back().ends.size());
    } else {
        block.ends.reserve(static_cast<size_t>(columns_->Count()));
    }
    blocks_.push_back(std::move(block));
}

void ResultTable::AppendText(QByteArrayView utf8) {
    if (utf8.size() > kLongestCell) RefuseCell();
    Block& block = blocks_.back();
    const auto size = static_cast<size_t>(utf8.size());
    const size_t end = block.used + size;
    if (end > block.text.size()) {
        if (end >= kNullMark) throw DatabaseError(kEngineFailure, QStringLiteral("検索結果が大きすぎます。"));
        block.text.resize(std::max(end, block.text.size() * 2));
    }
    if (size > 0) std::memcpy(block.text.data() + block.used, utf8.data(), size);
    block.used = end;
    block.ends.push_back(static_cast<quint32>(end));
}

void ResultTable::AppendNull() {
    Block& block = blocks_.back();
    block.ends.push_back(static_cast<quint32>(block.used) | kNullMark);
}

size_t ResultTable::CellIndex(int row, int column) const {
    return static_cast<size_t>(row % kRowsInBlock) * static_cast<size_t>(columns_->Count()) +
           static_cast<size_t>(column);
}

bool ResultTable::IsNull(int row, int column) const {
    const Block& block = blocks_[static_cast<size_t>(row / kRowsInBlock)];
    return (block.ends[CellIndex(row, column)] & kNullMark) != 0;
}

ResultTable::Bytes ResultTable::CellBytes(int row, int column) const {
    const Block& block = blocks_[static_cast<size_t>(row / kRowsInBlock)];
    const size_t cell = CellIndex(row, column);
    const quint32 begin = cell == 0 ? 0 : block.ends[cell - 1] & ~kNullMark;
    return {block.text.data() + begin, (block.ends[cell] & ~kNullMark) - begin};
}

QString ResultTable::Text(int row, int column) const {
    if (lastTexts_.empty()) lastTexts_.resize(static_cast<size_t>(columns_->Count()));
    LastText& last = lastTexts_[static_cast<size_t>(column)];
    if (last.row == row) return last.text;
    const Bytes cell = CellBytes(row, column);
    bool same = false;
    if (last.row >= 0 && SameBlock(last.row, row)) {
        const Bytes above = CellBytes(last.row, column);
        same = above.size == cell.size && std::memcmp(above.begin, cell.begin, cell.size) == 0;
    }
    last.row = row;
    if (!same) last.text = platform::TextFromUtf8({cell.begin, static_cast<qsizetype>(cell.size)});
    return last.text;
}

QByteArrayView ResultTable::Utf8(int row, int column) const {
    const Bytes cell = CellBytes(row, column);
    return {cell.begin, static_cast<qsizetype>(cell.size)};
}

void ResultTable::ForgetRowsBefore(int row) {
    for (; forgottenBlocks_ < row / kRowsInBlock; ++forgottenBlocks_)
        blocks_[static_cast<size_t>(forgottenBlocks_)] = Block();
}

}  // namespace database
