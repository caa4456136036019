#pragma once

#include <gtest/gtest.h>

#include <QHash>
#include <QTemporaryDir>

#include "report-host/layout/PreparedReport.h"
#include "support/PdfFile.h"
#include "support/SampleInstallation.h"
#include "support/TestServices.h"

using WorkRow = QHash<QString, QString>;

/// An installation whose work tables a test fills; the day is 21 November 2026.
class ReportTest : public testing::Test {
  protected:
    /// Columns that are not given stay Null.
    void AddRow(const QString& table, const WorkRow& row);
    void AddRows(const QString& table, int count, const WorkRow& row);
    /// A recipient with a sender, as envelope and postcard have them.
    static WorkRow Recipient();
    /// The label sheet's records of so many people, with the blank ones of the first sheet.
    void AddLabels(int count);

    QString FormText(const QString& name) const;
    void SetForm(const QString& name, const QString& text) const;
    /// Changes the form: a text in it by another. The text must be there.
    void ChangeForm(const QString& name, const QString& from, const QString& to) const;

    std::unique_ptr<PreparedReport> Prepare(const QString& report) const;
    /// Writes the report and reads it back.
    PdfFile Pdf(const QString& report);
    /// What a failure says; empty when the report could be made.
    QString Failure(const QString& report) const;

    QString FormsFile() const { return installation.Forms().Path(); }

    TestServices services;
    SampleInstallation installation{{.staff = 1}};
    QTemporaryDir folder;
};

inline const QString kList = QStringLiteral("要員名簿照会");
inline const QString kEnvelope = QStringLiteral("要員名簿照会封筒");
inline const QString kPostcard = QStringLiteral("要員名簿照会はがき");
inline const QString kLabels = QStringLiteral("要員名簿照会宛名ラベル");
