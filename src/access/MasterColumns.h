#pragma once

#include <QString>
#include <QStringView>
#include <span>
#include <type_traits>
#include <variant>

#include "database/Database.h"

/// A text that is stored as a PIN and kept in clear.
template <typename Record>
struct PinField {
    QString Record::*field;
};

/// A column of a master and the field it goes into. The kind of the field says how the stored text is read.
template <typename Record>
struct MasterColumn {
    QStringView name;
    std::variant<QString Record::*, int Record::*, double Record::*, PinField<Record>> field;
};

/// The stored text as the field's kind wants it; what is not a number is 0. A Null leaves the target as it was.
/// A PIN is turned into clear text by Services().pins.
void TakeText(const database::Field& stored, QString& target);
void TakeNumber(const database::Field& stored, int& target);
void TakeNumber(const database::Field& stored, double& target);
void TakePin(const database::Field& stored, QString& target);

/// Fills the fields from the current record. database::DatabaseError when the record lacks a column.
template <typename Record>
void TakeColumns(const database::Recordset& row, std::span<const MasterColumn<Record>> columns, Record& target) {
    for (const MasterColumn<Record>& column : columns) {
        const database::Field stored = row[column.name];
        const auto take = [&](auto place) {
            using Place = decltype(place);
            if constexpr (std::is_same_v<Place, PinField<Record>>)
                TakePin(stored, target.*place.field);
            else if constexpr (std::is_same_v<Place, QString Record::*>)
                TakeText(stored, target.*place);
            else
                TakeNumber(stored, target.*place);
        };
        std::visit(take, column.field);
    }
}
