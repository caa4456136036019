#include <gtest/gtest.h>

#include <QDirIterator>
#include <QFile>
#include <QHash>
#include <QLibraryInfo>
#include <QRegularExpression>
#include <QSet>
#include <QStringList>

using namespace Qt::StringLiterals;

namespace {

/// A static library of src/ as CMake links it.
struct Module {
    QStringList folders;  ///< below src/, those of other modules inside them included
    QStringList uses;     ///< linked directly
};

QString Content(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
    return QString::fromUtf8(file.readAll());
}

/// Lines "module|folder;folder|library;library", written when the build is configured.
QHash<QString, Module> Modules() {
    QHash<QString, Module> modules;
    for (const QString& line :
         Content(QStringLiteral(SUITE_PROGRAMS "/modules.txt")).split(u'\n', Qt::SkipEmptyParts)) {
        const QStringList parts = line.split(u'|');
        modules.insert(parts[0], {parts[1].split(u';'),
                                  parts[2].split(u';').filter(u"meibo_"_s).replaceInStrings(u"meibo_"_s, u""_s)});
    }
    return modules;
}

/// The module of a file below src/: the one with the longest folder. Empty for a file of no module.
QString ModuleOf(const QString& file, const QHash<QString, Module>& modules) {
    QString owner;
    qsizetype longest = 0;
    for (auto module = modules.begin(); module != modules.end(); ++module)
        for (const QString& folder : module->folders)
            if (file.startsWith(folder + u'/') && folder.size() > longest) {
                owner = module.key();
                longest = folder.size();
            }
    return owner;
}

/// A module and everything that it links, directly or not.
QSet<QString> Reachable(const QString& module, const QHash<QString, Module>& modules) {
    QSet<QString> seen;
    QStringList waiting{module};
    while (!waiting.isEmpty()) {
        const QString next = waiting.takeLast();
        if (seen.contains(next)) continue;
        seen.insert(next);
        waiting += modules.value(next).uses;
    }
    return seen;
}

/// Paths of headers and sources below src/, relative to it.
QStringList Sources() {
    const QString root = QStringLiteral(SUITE_SOURCES "/src/");
    QStringList files;
    QDirIterator all(root, {u"*.h"_s, u"*.cpp"_s}, QDir::Files, QDirIterator::Subdirectories);
    while (all.hasNext()) files.append(all.next().mid(root.size()));
    return files;
}

QStringList Includes(const QString& file, const QString& pattern) {
    const QRegularExpression include(u"^\\s*#\\s*include\\s+"_s + pattern, QRegularExpression::MultilineOption);
    QStringList found;
    auto matches = include.globalMatch(Content(QStringLiteral(SUITE_SOURCES "/src/") + file));
    while (matches.hasNext()) found.append(matches.next().captured(1));
    return found;
}

}  // namespace

TEST(Architecture, EverySourceBelongsToAModuleThatCMakeLinks) {
    const QHash<QString, Module> modules = Modules();
    EXPECT_GE(modules.size(), 15);
    for (const QString& file : Sources()) EXPECT_NE(ModuleOf(file, modules), QString()) << qPrintable(file);
}

TEST(Architecture, FilesIncludeOnlyModulesThatTheirModuleLinks) {
    const QHash<QString, Module> modules = Modules();
    QStringList faults;
    for (const QString& file : Sources()) {
        const QSet<QString> usable = Reachable(ModuleOf(file, modules), modules);
        for (const QString& header : Includes(file, u"\"([^\"]+)\""_s))
            if (!usable.contains(ModuleOf(header, modules))) faults.append(file + u": "_s + header);
    }
    EXPECT_EQ(faults.join(u'\n').toStdString(), "");
}

TEST(Architecture, NoModuleLinksAModuleThatLinksIt) {
    const QHash<QString, Module> modules = Modules();
    for (auto module = modules.begin(); module != modules.end(); ++module)
        for (const QString& used : module->uses)
            EXPECT_FALSE(Reachable(used, modules).contains(module.key())) << qPrintable(module.key() + u" "_s + used);
}

namespace {

/// Headers of POSIX and Linux, and <csignal> and <cerrno>, which serve only calls of the system.
const QString kSystemHeader =
    u"<((?:sys|linux|net|netinet|arpa|asm)/[^>]+|(?:unistd|fcntl|signal|poll|pwd|grp|dlfcn|spawn|sched|pthread|dirent|"
    "termios|syslog|netdb|mntent|ftw|glob|errno|semaphore|mqueue|utime|wait|ucontext)\\.h|csignal|cerrno)>"_s;

/// A call of the global namespace in lower case ("::open("), and calls that are often written without "::".
const QString kSystemCall =
    u"(?:(?<![\\w:>])::(?!sqlite3_|xcb_|SQL)[a-z][a-z0-9_]*|(?<![\\w:.>])(?:get(?:e?[ug]id|pw(?:nam|uid)|gr(?:nam|gid|"
    u"ouplist)|pid)|"
    "mkdtemp|fsync|chmod|chown|umask|sigaction|_exit|fork|waitpid|setrlimit|prctl|dlsym|dlopen|isatty))\\s*\\("_s;

QStringList SystemCallsIn(const QString& code) {
    static const QRegularExpression call(kSystemCall);
    static const QRegularExpression comment(u"//[^\n]*"_s);
    QStringList found;
    auto matches = call.globalMatch(QString(code).remove(comment));
    while (matches.hasNext()) found.append(matches.next().captured());
    return found;
}

}  // namespace

TEST(Architecture, ModulesBelowTheScreenIncludeNoWindowSystem) {
    const QString qt = QLibraryInfo::path(QLibraryInfo::HeadersPath);
    ASSERT_TRUE(QFile::exists(qt + u"/QtGui/QWindow"_s)) << qPrintable(qt);
    QStringList faults;
    for (const QString& file : Sources()) {
        if (!QStringList{u"text"_s, u"platform"_s, u"database"_s, u"globals"_s, u"data"_s}.contains(
                file.section(u'/', 0, 0)))
            continue;
        for (const QString& header : Includes(file, u"<([^>]+)>"_s)) {
            const bool window = header.startsWith(u"xcb/"_s) || header.startsWith(u"X11/"_s) ||
                                QFile::exists(qt + u"/QtGui/"_s + header) ||
                                QFile::exists(qt + u"/QtWidgets/"_s + header);
            if (window) faults.append(file + u": <"_s + header + u'>');
        }
    }
    EXPECT_EQ(faults.join(u'\n').toStdString(), "");
}

TEST(Architecture, SystemCallsAreRecognised) {
    EXPECT_EQ(SystemCallsIn(u"const int file = ::open(path, 0); ::flock (file, 1); return geteuid();"_s),
              QStringList({u"::open("_s, u"::flock ("_s, u"geteuid("_s}));
    EXPECT_EQ(SystemCallsIn(u"x.open(y); std::signal(1); platform::sync(); // ::open(z)\nFoo::open(y); p->fork();"_s),
              QStringList());
}

TEST(Architecture, OnlyThePosixFolderNamesPosixAndLinux) {
    QStringList faults;
    for (const QString& file : Sources()) {
        if (file.startsWith(u"platform/posix/"_s)) continue;
        for (const QString& header : Includes(file, kSystemHeader)) faults.append(file + u": <"_s + header + u'>');
        for (const QString& call : SystemCallsIn(Content(QStringLiteral(SUITE_SOURCES "/src/") + file)))
            faults.append(file + u": "_s + call);
    }
    EXPECT_EQ(faults.join(u'\n').toStdString(), "");
}
