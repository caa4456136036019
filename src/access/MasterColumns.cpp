#include "access/MasterColumns.h"

#include "platform/Services.h"
#include "text/mod項目編集.h"

void TakeText(const platform::Field& stored, QString& target) {
    if (!stored.IsNull()) target = stored.Text();
}

void TakeNumber(const platform::Field& stored, int& target) {
    if (!stored.IsNull()) target = NumericValue(stored.Text());
}

void TakeNumber(const platform::Field& stored, double& target) {
    if (!stored.IsNull()) target = stored.Text().toDouble();
}

void TakePin(const platform::Field& stored, QString& target) {
    if (!stored.IsNull()) target = platform::Services().pins->ClearText(stored.Text());
}
