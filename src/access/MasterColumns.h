#pragma once

#include <QString>
#include <QStringView>
#include <span>
#include <type_traits>
#include <variant>

#include "database/Database.h"

/// Target of a column with encrypted PINs; the field gets the clear text.
template <typename Record>
struct PinField {
    QString Record::*field;
};

/// A column of a master table and its target field. The field's type determines the conversion of the stored text.
template <typename Record>
struct MasterColumn {
    QStringView name;
    std::variant<QString Record::*, int Record::*, double Record::*, PinField<Record>> field;
};

// Convert a stored text to the target's type; a Null keeps the target's value.

/// The text unchanged.
void TakeText(const database::Field& stored, QString& target);
/// NumericValue of the text: digits only, without a sign.
void TakeNumber(const database::Field& stored, int& target);
/// Text that is not a number becomes 0.
void TakeNumber(const database::Field& stored, double& target);
/// Decrypts with Services().pins.
void TakePin(const database::Field& stored, QString& target);

/// Fills the fields from the current record, each as above. Throws database::DatabaseError if the record lacks a
/// column.
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
