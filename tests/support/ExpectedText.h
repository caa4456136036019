#pragma once

#include <QString>

/// Compares a text with the file tests/FILE; a test fails at each line that differs. With MEIBO_WRITE_EXPECTED in the
/// environment the file is written instead.
void ExpectText(const QString& text, const QString& file);
