#include "KeelbrightCore/platform/files/Package.h"

#include "KeelbrightCore/platform/files/FileURL.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace keelbright {

namespace {

using namespace std::string_view_literals;

/// The registered kinds of folders that people see as one thing, in lower case and in order.
constexpr std::array packageExtensions = {"abbu"sv,
                                          "action"sv,
                                          "aplibrary"sv,
                                          "app"sv,
                                          "appex"sv,
                                          "band"sv,
                                          "bbprojectd"sv,
                                          "bundle"sv,
                                          "colorpicker"sv,
                                          "component"sv,
                                          "dext"sv,
                                          "dictionary"sv,
                                          "docset"sv,
                                          "download"sv,
                                          "dsym"sv,
                                          "dvdmedia"sv,
                                          "fcpbundle"sv,
                                          "fcpcache"sv,
                                          "graffle"sv,
                                          "icbu"sv,
                                          "imovielibrary"sv,
                                          "imovieproject"sv,
                                          "kext"sv,
                                          "key"sv,
                                          "logicx"sv,
                                          "lrdata"sv,
                                          "lrlibrary"sv,
                                          "mbox"sv,
                                          "mdimporter"sv,
                                          "menu"sv,
                                          "migratedaplibrary"sv,
                                          "migratedphotolibrary"sv,
                                          "mlpackage"sv,
                                          "mpkg"sv,
                                          "musiclibrary"sv,
                                          "nib"sv,
                                          "numbers"sv,
                                          "osax"sv,
                                          "pages"sv,
                                          "photolibrary"sv,
                                          "photoslibrary"sv,
                                          "pkg"sv,
                                          "playground"sv,
                                          "playgroundbook"sv,
                                          "plugin"sv,
                                          "prefpane"sv,
                                          "pvm"sv,
                                          "qlgenerator"sv,
                                          "rtfd"sv,
                                          "saver"sv,
                                          "scptd"sv,
                                          "scriv"sv,
                                          "service"sv,
                                          "slidesaver"sv,
                                          "sparsebundle"sv,
                                          "spreporter"sv,
                                          "systemextension"sv,
                                          "textbundle"sv,
                                          "theater"sv,
                                          "tmbundle"sv,
                                          "trace"sv,
                                          "tvlibrary"sv,
                                          "utm"sv,
                                          "vmwarevm"sv,
                                          "vst"sv,
                                          "vst3"sv,
                                          "wdgt"sv,
                                          "workflow"sv,
                                          "xcarchive"sv,
                                          "xcdatamodel"sv,
                                          "xcdatamodeld"sv,
                                          "xcodeproj"sv,
                                          "xcresult"sv,
                                          "xctest"sv,
                                          "xcworkspace"sv,
                                          "xpc"sv};
static_assert(std::ranges::is_sorted(packageExtensions));

constexpr size_t longestExtension = std::ranges::max(packageExtensions, {}, &std::string_view::size).size();

constexpr char lowerCase(char letter)
{
    return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

} // namespace

bool isPackage(QByteArrayView directoryName)
{
    const QByteArrayView extension = pathExtensionOf(directoryName);
    const auto length = static_cast<size_t>(extension.size());
    if (length == 0 || length > longestExtension)
        return false;
    // Asked once for every folder of a walk, so nothing is allocated here.
    std::array<char, longestExtension> lowered = {};
    std::ranges::transform(extension, lowered.begin(), lowerCase);
    return std::ranges::binary_search(packageExtensions, std::string_view(lowered.data(), length));
}

} // namespace keelbright
