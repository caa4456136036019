#pragma once

#include <QSizeF>
#include <QString>

/// Hands a PDF over to the printing system, which has taken a copy of it when this returns. An empty `printer` is the
/// user's default one. `page` is in millimetres; a printer that says which papers it has must have that one, since it
/// would take another without a word. Throws ReportFailure with a reason that a clerk understands: no printing system,
/// no such printer, a printer that takes no jobs, paper that it lacks.
void HandToPrinter(const QString& pdf, const QString& printer, const QString& title, QSizeF page);
