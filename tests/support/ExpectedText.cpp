#include "support/ExpectedText.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QStringList>
#include <algorithm>

#include "support/PrintText.h"

void ExpectText(const QString& text, const QString& name) {
    QFile file(QStringLiteral(SUITE_SOURCES "/tests/") + name);
    if (qEnvironmentVariableIsSet("MEIBO_WRITE_EXPECTED")) {
        ASSERT_TRUE(file.open(QFile::WriteOnly)) << file.fileName().toStdString();
        file.write(text.toUtf8());
        return;
    }
    ASSERT_TRUE(file.open(QFile::ReadOnly)) << file.fileName().toStdString();
    const QStringList expected = QString::fromUtf8(file.readAll()).split(u'\n');
    const QStringList lines = text.split(u'\n');
    for (qsizetype i = 0; i < std::max(lines.size(), expected.size()); ++i)
        EXPECT_EQ(lines.value(i), expected.value(i)) << name.toStdString() << ':' << i + 1;
}
