#include "resources/module.h"

#include "resources/artwork/image_table.h"
#include "resources/menu_table.h"
#include "resources/string_table.h"

HINSTANCE OdoledgerModule() {
    static constexpr VersionResource Version{
        ODOLEDGER_VERSION_MAJOR, ODOLEDGER_VERSION_MINOR, ODOLEDGER_VERSION_PATCH, ODOLEDGER_VERSION_TWEAK};
    static const Module module{StringTable(), MenuTable(), AcceleratorTable(), ImageTable(), &Version};
    return &module;
}
