#include "screen/KeyCodes.h"

#include <Qt>
#include <algorithm>
#include <iterator>

#include "screen/Control.h"

namespace {

struct KeyPair {
    int qtKey;
    int keyCode;
};

constexpr KeyPair kNamedKeys[] = {
    {Qt::Key_Backspace, 8},
    {Qt::Key_Tab, 9},
    {Qt::Key_Backtab, 9},
    {Qt::Key_Shift, 16},
    {Qt::Key_Alt, 18},
    {Qt::Key_Pause, 19},
    {Qt::Key_PageUp, 33},
    {Qt::Key_PageDown, 34},
    {Qt::Key_End, 35},
    {Qt::Key_Home, 36},
    {Qt::Key_Left, 37},
    {Qt::Key_Up, 38},
    {Qt::Key_Right, 39},
    {Qt::Key_Down, 40},
    {Qt::Key_Insert, 45},
    {Qt::Key_Delete, 46},
    {Qt::Key_Return, kKeyReturn},
    {Qt::Key_Enter, kKeyReturn},
    {Qt::Key_Control, kKeyControl},
    {Qt::Key_Escape, kKeyEscape},
    {Qt::Key_Space, 32},
};
constexpr int kFirstFunctionKey = 112;

bool Between(int key, int first, int last) { return first <= key && key <= last; }

}  // namespace

int KeyCodeOf(int qtKey) {
    if (Between(qtKey, Qt::Key_0, Qt::Key_9) || Between(qtKey, Qt::Key_A, Qt::Key_Z)) return qtKey;
    if (Between(qtKey, Qt::Key_F1, Qt::Key_F24)) return kFirstFunctionKey + qtKey - Qt::Key_F1;
    const auto* found = std::find_if(std::begin(kNamedKeys), std::end(kNamedKeys),
                                     [qtKey](const KeyPair& pair) { return pair.qtKey == qtKey; });
    return found == std::end(kNamedKeys) ? 0 : found->keyCode;
}
