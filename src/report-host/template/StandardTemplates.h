#pragma once

#include <QString>
#include <QStringList>

namespace report {

/// The forms that the house brings: staff list, envelope, postcard, label sheet. Each reads the work table of its name.
QStringList StandardFormNames();

/// The text of one of them.
QString StandardForm(const QString& name);

}  // namespace report
