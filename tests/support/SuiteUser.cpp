#include "support/SuiteUser.h"

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include <QDir>
#include <QtTest/QTest>

#include <stdexcept>

#include "report-host/template/OutputTarget.h"

using namespace Qt::StringLiterals;

namespace {

constexpr uid_t kNobody = 65534;
constexpr int kTimeout = 30000;  // milliseconds
const QString kProgram = u"/prgbin/要員名簿照会"_s;

void SetMode(const QString& path, mode_t mode) {
    if (::chmod(QFile::encodeName(path).constData(), mode) != 0)
        throw std::runtime_error("cannot set the mode of " + path.toStdString());
}

QString NameOf(uid_t user) {
    const passwd* entry = getpwuid(user);
    if (entry == nullptr) throw std::runtime_error("a user of the test has no name");
    return QString::fromLocal8Bit(entry->pw_name);
}

void MakeFolderOf(uid_t user, const QString& path) {
    if (!QDir().mkdir(path)) throw std::runtime_error("cannot make " + path.toStdString());
    SetMode(path, 0700);
    // Only root can change the owner, and only then is the other user a real one.
    if (geteuid() == 0 && ::chown(QFile::encodeName(path).constData(), user, user) != 0)
        throw std::runtime_error("cannot give away " + path.toStdString());
}

}  // namespace

// Not in the tests' temporary folder, which other users cannot access.
SharedSuite::SharedSuite(int staff) : folder_(u"/tmp/meibo-users-XXXXXX"_s) {
    SetMode(folder_.path(), 0755);
    // The installation gets this group, so that the other user is a member.
    if (geteuid() == 0 && ::chown(QFile::encodeName(folder_.path()).constData(), 0, kNobody) != 0)
        throw std::runtime_error("cannot give away " + folder_.path().toStdString());
    QProcess tool;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"MEIBO_MACHINE_REGISTRY"_s, MachineRegistry());
    tool.setProcessEnvironment(environment);
    tool.start(QStringLiteral(SUITE_PROGRAMS "/suite-setup"),
               {u"init"_s, Root(), u"--staff"_s, QString::number(staff), u"--install-kind"_s, u"1"_s});
    if (!tool.waitForFinished(kTimeout) || tool.exitCode() != 0)
        throw std::runtime_error("suite-setup: " + tool.readAllStandardError().toStdString());
    SetMode(MachineRegistry(), 0644);
}

SuiteUser::SuiteUser(const SharedSuite& suite, Who who)
    : who_(who),
      program_(suite.Root() + kProgram),
      home_(suite.Place(who == Who::Nobody ? u"nobody"_s : u"runner"_s)),
      name_(NameOf(who == Who::Nobody ? kNobody : getuid())) {
    own_ = suite.Root() + u"/users/"_s + name_;
    for (const QString& folder : {home_, PrinterFolder()})
        MakeFolderOf(who == Who::Nobody ? kNobody : getuid(), folder);
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString& variable : {u"HOME"_s, u"TMPDIR"_s, u"XDG_RUNTIME_DIR"_s}) environment.insert(variable, home_);
    environment.insert(u"MEIBO_MACHINE_REGISTRY"_s, suite.MachineRegistry());
    environment.insert(u"MEIBO_USER_REGISTRY"_s, RegistryFile());
    environment.insert(u"QT_QPA_PLATFORM"_s, u"xcb"_s);
    environment.insert(u"DISPLAY"_s, screen_.Display());
    process_.setProcessEnvironment(environment);
    process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
}

SuiteUser::~SuiteUser() {
    process_.kill();
    process_.waitForFinished();
}

/// Root can switch to another user. Other users get its name in a user namespace.
QStringList SuiteUser::Command(const QStringList& program) const {
    const QString id = QString::number(kNobody);
    if (who_ == Who::Runner) return program;
    if (geteuid() == 0)
        return QStringList{u"setpriv"_s, u"--reuid="_s + id, u"--regid="_s + id, u"--clear-groups"_s} + program;
    return QStringList{u"unshare"_s, u"--user"_s, u"--map-user="_s + id, u"--map-group="_s + id} + program;
}

bool SuiteUser::ListShown() const {
    const SampleFile configuration = Own(u"conf/usrcnfg.accdb"_s);
    return QFile::exists(configuration.Path()) &&
           configuration.Value(u"SELECT COUNT(*) FROM プログラム稼動履歴 WHERE 摘要 LIKE '出力終了 SELECT%'"_s) ==
               u"1"_s &&
           !screen_.NewestOf(1).isEmpty();
}

void SuiteUser::StartProgram(const QString& startCommand) {
    const QStringList command = Command({program_, startCommand});
    process_.start(command.first(), command.mid(1));
    if (!process_.waitForStarted()) throw std::runtime_error("cannot start " + command.first().toStdString());
}

void SuiteUser::AwaitList() {
    if (!QTest::qWaitFor([this] { return ListShown(); }, kTimeout))
        throw std::runtime_error("the program shows no list to " + name_.toStdString());
    WriteOutputTarget(Own(u"report/repfrmdb.accdb"_s).Path(), {}, {OutputTarget::Kind::Folder, PrinterFolder()});
}

void SuiteUser::Click(const QPoint& place) {
    window_ = screen_.NewestOf(1);
    if (!screen_.Click(window_, place)) throw std::runtime_error("cannot click");
}

void SuiteUser::SayYes() {
    if (!screen_.Press(screen_.NewestOf(2), {u"Return"_s})) throw std::runtime_error("no question came up");
}

void SuiteUser::EndProgram() {
    process_.terminate();
    AwaitEnd();
}

void SuiteUser::CloseProgram() {
    if (!screen_.Close(window_)) throw std::runtime_error("cannot close the window");
    AwaitEnd();
}

void SuiteUser::AwaitEnd() {
    if (!process_.waitForFinished(kTimeout)) throw std::runtime_error("the program does not end");
}

bool SuiteUser::EndsInOrder() {
    AwaitEnd();
    return process_.exitStatus() == QProcess::NormalExit;
}

QStringList SuiteUser::Printed() const {
    QStringList pages;
    const auto received = [&] {
        return !(pages = QDir(PrinterFolder()).entryList({u"*.pdf"_s}, QDir::Files)).isEmpty();
    };
    if (!QTest::qWaitFor(received, kTimeout)) return {};
    for (QString& page : pages) page.prepend(PrinterFolder() + u'/');
    return pages;
}
