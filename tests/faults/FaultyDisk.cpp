#include "faults/FaultyDisk.h"

#include <sqlite3.h>

#include <array>
#include <cstring>
#include <new>

namespace {

struct Plan {
    DiskFault fault{"none", DiskOperation::Any};
    int left = 0;  // operations until the fault is triggered; 0 if it has been, or none is armed
    bool lasting = false;
    bool paused = false;
    bool fallen = false;
    QByteArray part;
};
Plan plan;
sqlite3_vfs* real = nullptr;

constexpr std::array kUsualCodes = {SQLITE_CANTOPEN,   SQLITE_IOERR_READ,     SQLITE_IOERR_WRITE, SQLITE_IOERR_FSYNC,
                                    SQLITE_IOERR_LOCK, SQLITE_IOERR_TRUNCATE, SQLITE_IOERR_DELETE};

/// The engine allocates this struct and, after it, the one of the real file.
struct FaultyFile {
    sqlite3_file base;
    const char* name;  // owned by the engine, valid as long as the file; null for a temporary file
};

sqlite3_file* Real(sqlite3_file* file) {
    return reinterpret_cast<sqlite3_file*>(reinterpret_cast<FaultyFile*>(file) + 1);
}

/// SQLITE_OK, or the error code for this operation.
int Verdict(DiskOperation operation, const char* name) {
    if (plan.paused || (plan.fault.operation != operation && plan.fault.operation != DiskOperation::Any))
        return SQLITE_OK;
    if (!plan.part.isEmpty() && (name == nullptr || std::strstr(name, plan.part.constData()) == nullptr))
        return SQLITE_OK;
    const bool falls = plan.left > 0 ? --plan.left == 0 : plan.fallen && plan.lasting;
    if (!falls) return SQLITE_OK;
    plan.fallen = true;
    return plan.fault.code != 0 ? plan.fault.code : kUsualCodes.at(static_cast<size_t>(operation));
}
int Verdict(DiskOperation operation, sqlite3_file* file) {
    return Verdict(operation, reinterpret_cast<FaultyFile*>(file)->name);
}

int Close(sqlite3_file* file) { return Real(file)->pMethods->xClose(Real(file)); }

int Read(sqlite3_file* file, void* bytes, int count, sqlite3_int64 at) {
    if (const int code = Verdict(DiskOperation::Read, file)) return code;
    return Real(file)->pMethods->xRead(Real(file), bytes, count, at);
}

int Write(sqlite3_file* file, const void* bytes, int count, sqlite3_int64 at) {
    const int code = Verdict(DiskOperation::Write, file);
    const int written = Real(file)->pMethods->xWrite(Real(file), bytes, code == SQLITE_OK ? count : count / 2, at);
    return code == SQLITE_OK ? written : code;
}

int Truncate(sqlite3_file* file, sqlite3_int64 size) {
    if (const int code = Verdict(DiskOperation::Truncate, file)) return code;
    return Real(file)->pMethods->xTruncate(Real(file), size);
}

int Sync(sqlite3_file* file, int /*flags*/) { return Verdict(DiskOperation::Sync, file); }

int Size(sqlite3_file* file, sqlite3_int64* size) { return Real(file)->pMethods->xFileSize(Real(file), size); }

int Lock(sqlite3_file* file, int level) {
    if (const int code = Verdict(DiskOperation::Lock, file)) return code;
    return Real(file)->pMethods->xLock(Real(file), level);
}

int Unlock(sqlite3_file* file, int level) { return Real(file)->pMethods->xUnlock(Real(file), level); }

int CheckReserved(sqlite3_file* file, int* held) { return Real(file)->pMethods->xCheckReservedLock(Real(file), held); }

int Control(sqlite3_file* file, int what, void* value) {
    return Real(file)->pMethods->xFileControl(Real(file), what, value);
}

int SectorSize(sqlite3_file* file) { return Real(file)->pMethods->xSectorSize(Real(file)); }

int Characteristics(sqlite3_file* file) { return Real(file)->pMethods->xDeviceCharacteristics(Real(file)); }

/// Version 1, without shared memory and memory mapping, which would bypass reads and writes.
const sqlite3_io_methods kMethods = {
    1,          Close,           Read,    Write,   Truncate, Sync,    Size,    Lock,   Unlock, CheckReserved, Control,
    SectorSize, Characteristics, nullptr, nullptr, nullptr,  nullptr, nullptr, nullptr};

int Open(sqlite3_vfs* /*vfs*/, const char* name, sqlite3_file* file, int flags, int* given) {
    auto* faulty = new (file) FaultyFile{{nullptr}, name};
    if (const int code = Verdict(DiskOperation::Open, name)) return code;
    const int code = real->xOpen(real, name, Real(file), flags, given);
    if (Real(file)->pMethods != nullptr) faulty->base.pMethods = &kMethods;
    return code;
}

int Delete(sqlite3_vfs* /*vfs*/, const char* name, int syncFolder) {
    const int code = Verdict(DiskOperation::Delete, name);
    if (code != SQLITE_OK && !plan.fault.doneAllTheSame) return code;
    const int deleted = real->xDelete(real, name, syncFolder);
    return code == SQLITE_OK ? deleted : code;
}

}  // namespace

void FaultyDisk::Install() {
    static sqlite3_vfs faulty;
    if (real != nullptr) return;
    real = sqlite3_vfs_find(nullptr);
    faulty = *real;
    faulty.zName = "faulty";
    faulty.szOsFile = static_cast<int>(sizeof(FaultyFile)) + real->szOsFile;
    faulty.xOpen = Open;
    faulty.xDelete = Delete;
    sqlite3_vfs_register(&faulty, 1);
}

void FaultyDisk::Arm(const DiskFault& fault, int point, Lasting lasting, const QByteArray& part) {
    plan = {fault, point, lasting == Lasting::FromThenOn, false, false, part};
}

void FaultyDisk::Repair() {
    plan.left = 0;
    plan.lasting = false;
}

bool FaultyDisk::Disarm() {
    const bool fallen = plan.fallen;
    plan = {};
    return fallen;
}

FaultyDisk::Pause::Pause() { plan.paused = true; }
FaultyDisk::Pause::~Pause() { plan.paused = false; }
