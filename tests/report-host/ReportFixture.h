#pragma once

#include <gtest/gtest.h>

#include <QHash>
#include <QTemporaryDir>

#include "report-host/layout/PreparedReport.h"
#include "support/PdfFile.h"
#include "support/SampleInstallation.h"
#include "support/TestServices.h"

using WorkRow = QHash<QString, QString>;

/// An installation whose work tables are filled by the test. The clock is fixed at 21 November 2026.
class ReportTest : public testing::Test {
  protected:
    /// Omitted columns are Null.
    void AddRow(const QString& table, const WorkRow& row);
    void AddRows(const QString& table, int count, const WorkRow& row);
    /// A recipient with a sender, as on envelope and postcard.
    static WorkRow Recipient();
    /// Label records of `count` persons, and the blank ones of the first sheet.
    void AddLabels(int count);

    QString TemplateText(const QString& name) const;
    void SetTemplate(const QString& name, const QString& text) const;
    /// Replaces a text within the template; the text must be present.
    void ChangeTemplate(const QString& name, const QString& from, const QString& to) const;

    std::unique_ptr<PreparedReport> Prepare(const QString& report) const;
    /// Writes the report as PDF and reads it back.
    PdfFile Pdf(const QString& report);
    /// The reason of a failure; empty on success.
    QString Failure(const QString& report) const;

    QString TemplateFile() const { return installation.Forms().Path(); }

    TestServices services;
    SampleInstallation installation{{.staff = 1}};
    QTemporaryDir folder;
};

inline const QString kList = QStringLiteral("要員名簿照会");
inline const QString kEnvelope = QStringLiteral("要員名簿照会封筒");
inline const QString kPostcard = QStringLiteral("要員名簿照会はがき");
inline const QString kLabels = QStringLiteral("要員名簿照会宛名ラベル");
