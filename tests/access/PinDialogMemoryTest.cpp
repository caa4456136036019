#include <fcntl.h>
#include <unistd.h>

#include <QFile>
#include <vector>

#include "access/PinDialogDriver.h"
#include "access/RightsFixture.h"
#include "support/SamplePins.h"

using namespace Qt::StringLiterals;

namespace {

/// A heap mapping of this process, as listed in its table of mappings.
struct MemoryArea {
    quint64 from = 0, to = 0;
};

std::vector<MemoryArea> HeapAreas() {
    QFile table(u"/proc/self/maps"_s);
    std::vector<MemoryArea> areas;
    if (!table.open(QIODevice::ReadOnly)) return areas;
    for (const QByteArray& line : table.readAll().split('\n')) {
        const QList<QByteArray> words = line.simplified().split(' ');
        const bool anonymous = words.size() == 5 || (words.size() == 6 && words[5] == "[heap]");
        if (!anonymous || !words[1].startsWith("rw")) continue;
        const QList<QByteArray> ends = words[0].split('-');
        areas.push_back({ends[0].toULongLong(nullptr, 16), ends[1].toULongLong(nullptr, 16)});
    }
    return areas;
}

// Not on the heap, so that the search leaves no further copies there.
char page[4096];

/// Counts the copies of a UTF-16 text on the heap. The text is passed reversed, so that the argument does not count.
int CopiesInHeap(std::u16string backwards) {
    std::u16string text(backwards.rbegin(), backwards.rend());
    QByteArray needle(reinterpret_cast<const char*>(text.data()), static_cast<qsizetype>(text.size() * 2));
    std::fill(text.begin(), text.end(), u'\0');
    const int memory = ::open("/proc/self/mem", O_RDONLY);
    int copies = 0;
    constexpr quint64 kLimit = quint64{1} << 28;  // sanitizers map far larger areas
    for (const MemoryArea& area : HeapAreas()) {
        const auto own = reinterpret_cast<quint64>(page);
        if (area.to - area.from > kLimit || (own >= area.from && own < area.to)) continue;
        for (quint64 at = area.from; at < area.to; at += sizeof page) {
            if (::pread(memory, page, sizeof page, static_cast<off_t>(at)) != sizeof page) break;
            copies += static_cast<int>(QByteArrayView(page, sizeof page).count(needle));
        }
    }
    ::close(memory);
    needle.fill('\0');  // freed memory is not cleared
    return copies - 1;  // without the needle
}

}  // namespace

namespace {

const std::u16string kBackwards = u"9Q7WXJKV";

/// The PIN of 00001 is this text, encrypted as in an installation.
class PinDialogMemory : public WithRights {
  protected:
    PinDialogMemory() {
        const SamplePins pins(installation.Root());
        QString clear = QString::fromStdU16String({kBackwards.rbegin(), kBackwards.rend()});
        SetStaff(u"暗証番号 = "_s + SqlLiteral(pins.Sealed(clear)));
        clear.fill(u' ');
        platform::Services().pins =
            std::make_unique<platform::SealedPins>(installation.ConfFolder() + u"/pin.key"_s, [](const QString&) {});
        Globals().PinRequired = 1;
        SetSignIn(QString());
    }
};

}  // namespace

TEST_F(PinDialogMemory, TheClearPinIsGoneWithTheDialog) {
    Globals().OsUserName = u"Taro"_s;
    int whileOpen = 0;
    PinDialogDriver driver([&](PinDialogDriver& user) {
        whileOpen = CopiesInHeap(kBackwards);
        user.Click(u"btn_キャンセル"_s);
    });
    EXPECT_FALSE(Check(4));
    EXPECT_EQ(whileOpen, 1);
    EXPECT_EQ(CopiesInHeap(kBackwards), 0);
}

TEST_F(PinDialogMemory, ALookupWithoutARowWipesTheClearPinOfThePersonBefore) {
    int found = 0, notFound = 0;
    PinDialogDriver driver([&](PinDialogDriver& user) {
        user.Type(u"00001"_s);
        user.Press(Qt::Key_Tab);
        found = CopiesInHeap(kBackwards);
        user.Click(u"担当者コード"_s);
        user.Press(Qt::Key_A, Qt::ControlModifier);
        user.Type(u"88888"_s);
        user.Press(Qt::Key_Tab);
        notFound = CopiesInHeap(kBackwards);
        user.Click(u"btn_キャンセル"_s);
    });
    EXPECT_FALSE(Check(4));
    EXPECT_EQ(found, 1);
    EXPECT_EQ(notFound, 0);
}
