#include "help/product.h"

namespace corvane::product {

std::string versionLine(const BundleInfo& bundle)
{
    return "Version " + bundle.shortVersion.value_or("0.1") + " (Beta) (Build " + bundle.version.value_or("1") + ")";
}

} // namespace corvane::product
