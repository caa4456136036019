#pragma once

#include <QStringView>
#include <array>

namespace setup {

struct PinColumn {
    QStringView table;
    QStringView column;
};

/// All columns of the general database that contain PINs.
inline constexpr std::array kPinColumns = {
    PinColumn{u"M担当者", u"暗証番号"},
    PinColumn{u"Mユーザ", u"特権暗証番号"},
    PinColumn{u"Mユーザ", u"システム特権暗証番号"},
    PinColumn{u"M事業所", u"特権暗証番号"},
};

}  // namespace setup
