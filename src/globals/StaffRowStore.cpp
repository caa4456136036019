#include "globals/StaffRowStore.h"

QString StaffRowStore::Text(StaffText field, int row) const {
    const Places& places = PlacesOf(row);
    if (!written_.isEmpty()) {
        if (const auto found = written_.constFind(Key(field, row)); found != written_.cend()) return *found;
    }
    const Place& place = field == StaffText::EMAIL ? places.mail : places.row;
    if (place.query == 0) return {};
    return queries_[static_cast<size_t>(place.query) - 1]->Text(field, place.row);
}

void StaffRowStore::SetText(StaffText field, int row, const QString& text) {
    PlacesOf(row);
    written_[Key(field, row)] = text;
}

void StaffRowStore::LoadTexts(int row, const std::shared_ptr<const StaffRows>& query, int queryRow) {
    ClearTexts(row);
    if (queries_.empty() || queries_.back() != query) queries_.push_back(query);
    const Place place{.query = static_cast<int>(queries_.size()), .row = queryRow};
    PlacesOf(row) = {.row = place, .mail = place};
}

void StaffRowStore::ClearTexts(int row) {
    PlacesOf(row) = {};
    if (written_.isEmpty()) return;
    for (int field = 0; field < kStaffTextCount; ++field) written_.remove(Key(static_cast<StaffText>(field), row));
}

void StaffRowStore::CopyTexts(int source, int target) {
    PlacesOf(target).row = PlacesOf(source).row;
    if (written_.isEmpty()) return;
    for (int i = 0; i < kStaffTextCount; ++i) {
        const auto field = static_cast<StaffText>(i);
        if (field == StaffText::EMAIL) continue;
        if (const auto found = written_.constFind(Key(field, source)); found != written_.cend()) {
            const QString text = *found;
            written_[Key(field, target)] = text;
        } else {
            written_.remove(Key(field, target));
        }
    }
}

void StaffRowStore::ReleaseQueries() { queries_.clear(); }
