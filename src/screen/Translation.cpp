#include "screen/Translation.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QTranslator>

void InstallTranslator(QCoreApplication& application) {
    static QTranslator translator;
    QLocale::setDefault(QLocale(QLocale::Japanese, QLocale::Japan));
    if (translator.load(QLocale(), QStringLiteral("qtbase"), QStringLiteral("_"),
                        QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        application.installTranslator(&translator);
}
