#include "access/MasterColumns.h"

#include "platform/Services.h"
#include "text/mod項目編集.h"

void TakeText(const database::Field& stored, QString& target) {
    if (!stored.IsNull()) target = stored.Text();
}

void TakeNumber(const database::Field& stored, int& target) {
    if (!stored.IsNull()) target = NumericValue(stored.Text());
}

void TakeNumber(const database::Field& stored, double& target) {
    if (!stored.IsNull()) target = stored.Text().toDouble();
}

void TakePin(const database::Field& stored, QString& target) {
    if (!stored.IsNull()) target = platform::Services().pins->ClearText(stored.Text());
}
