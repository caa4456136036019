#pragma once

#include <QString>
#include <QStringList>

namespace report {

/// Names of the built-in templates: staff list, envelope, postcard, label sheet. Each reads the work table of the same
/// name.
QStringList StandardFormNames();

/// Text of a built-in template; empty for an unknown name.
QString StandardForm(const QString& name);

}  // namespace report
