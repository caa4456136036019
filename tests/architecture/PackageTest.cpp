// What the Debian package needs to be installed with.

#include <gtest/gtest.h>

#include <QFile>
#include <QRegularExpression>

using namespace Qt::StringLiterals;

namespace {

QString Source(const QString& path) {
    QFile file(QStringLiteral(SUITE_SOURCES "/") + path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

/// Packages that the package declares in a field; alternatives are one entry.
QStringList Declared(const QString& field) {
    const QRegularExpression setting(u"set\\(CPACK_DEBIAN_PACKAGE_%1 \"([^\"]*)\"\\)"_s.arg(field));
    return setting.match(Source(u"packaging/CMakeLists.txt"_s)).captured(1).split(u", "_s);
}

}  // namespace

// Without them the panel Manual would silently do nothing.
TEST(Package, BringsWhatOpensTheManual) {
    EXPECT_TRUE(Source(u"src/platform/posix/ProcessService.cpp"_s).contains(u"\"xdg-open\""_s));
    EXPECT_TRUE(Declared(u"DEPENDS"_s).contains(u"xdg-utils"_s));
    EXPECT_TRUE(Declared(u"RECOMMENDS"_s).contains(u"libreoffice-writer"_s));
}
