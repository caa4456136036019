// Linker hardening of the four programs, read from their ELF files.

#include <elf.h>
#include <gtest/gtest.h>

#include <QFile>
#include <cstring>

using namespace Qt::StringLiterals;

namespace {

class Hardening : public testing::TestWithParam<QString> {
  protected:
    Hardening() {
        QFile file(QStringLiteral(SUITE_PROGRAMS "/") + GetParam());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        bytes = file.readAll();
        header = At<Elf64_Ehdr>(0);
    }

    template <typename Record>
    Record At(quint64 place) const {
        Record record = {};
        if (place + sizeof record <= static_cast<quint64>(bytes.size()))
            std::memcpy(&record, bytes.constData() + place, sizeof record);
        return record;
    }
    /// The segment of that type; its p_type is PT_NULL if there is none.
    Elf64_Phdr Segment(quint32 type) const {
        for (int i = 0; i < header.e_phnum; ++i) {
            const auto segment = At<Elf64_Phdr>(header.e_phoff + static_cast<quint64>(i) * header.e_phentsize);
            if (segment.p_type == type) return segment;
        }
        return {};
    }
    quint64 Dynamic(qint64 tag) const {
        const Elf64_Phdr segment = Segment(PT_DYNAMIC);
        for (quint64 at = 0; at < segment.p_filesz; at += sizeof(Elf64_Dyn)) {
            const auto entry = At<Elf64_Dyn>(segment.p_offset + at);
            if (entry.d_tag == tag) return entry.d_un.d_val;
        }
        return 0;
    }
    bool Imports(const QByteArray& procedure) const { return bytes.contains('\0' + procedure + '\0'); }

    QByteArray bytes;
    Elf64_Ehdr header = {};
};

}  // namespace

TEST_P(Hardening, TheProgramIsLoadedAtAnyAddress) {
    EXPECT_EQ(header.e_type, ET_DYN);
    EXPECT_NE(Dynamic(DT_FLAGS_1) & DF_1_PIE, 0U);
}

// Debug and sanitizer builds are not hardened.
#ifdef NDEBUG
TEST_P(Hardening, AddressesOfLibrariesAreReadOnlyOnceTheProgramRuns) {
    EXPECT_EQ(Segment(PT_GNU_RELRO).p_type, static_cast<quint32>(PT_GNU_RELRO));
    EXPECT_NE(Dynamic(DT_FLAGS) & DF_BIND_NOW, 0U);
    EXPECT_NE(Dynamic(DT_FLAGS_1) & DF_1_NOW, 0U);
}

TEST_P(Hardening, OverwritesOfTheStackAreNoticed) { EXPECT_TRUE(Imports("__stack_chk_fail")); }

TEST_P(Hardening, CallsOfTheCLibraryAreChecked) { EXPECT_TRUE(Imports("__fprintf_chk")); }
#endif

INSTANTIATE_TEST_SUITE_P(Of, Hardening,
                         testing::Values(u"要員名簿照会"_s, u"要員台帳更新"_s, u"report-host"_s, u"suite-setup"_s));
