#include "KeelbrightCore/platform/text/IcuText.h"

namespace keelbright {

icu::Locale dateIcuLocale()
{
    return defaultIcuLocale(); // this system has one choice for all, in Language & Region
}

} // namespace keelbright
