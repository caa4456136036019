#include "platform/Registry.h"

namespace platform {

RegistryKey MachineRoot() { return {RegistryRoot::LocalMachine, {}, kRegistryAll, true}; }
RegistryKey UserRoot() { return {RegistryRoot::CurrentUser, {}, kRegistryAll, true}; }

long Registry::GetValue(const RegistryKey& root, const QString& subkey, const QString& name, int type, QString& buffer,
                        int& length) {
    if (type != kRegistryTextType) return kRegistryOtherType;
    RegistryKey key;
    const long opened = OpenKey(root, subkey, kRegistryRead, key);
    if (opened != kRegistryDone) return opened;
    const long status = QueryText(key, name, buffer, length);
    CloseKey(key);
    return status;
}

}  // namespace platform
