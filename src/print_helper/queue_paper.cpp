#include "print_helper/queue_paper.h"

#include <cstdlib>
#include <memory>

namespace print_helper {

namespace {

struct FreeInfo {
    void operator()(cups_dinfo_t* info) const { ::cupsFreeDestInfo(info); }
};
using Info = std::unique_ptr<cups_dinfo_t, FreeInfo>;

int resolutionOf(http_t& service, cups_dest_t& queue, cups_dinfo_t& info)
{
    ipp_attribute_t* const found =
        ::cupsFindDestDefault(&service, &queue, &info, "printer-resolution");
    if (found == nullptr || ::ippGetValueTag(found) != IPP_TAG_RESOLUTION) {
        return 0;
    }
    int down = 0;
    ipp_res_t units = IPP_RES_PER_INCH;
    const int across = ::ippGetResolution(found, 0, &down, &units);
    constexpr double kCentimetresInInch = 2.54;
    return units == IPP_RES_PER_CM ? int(across * kCentimetresInInch) : across;
}

bool isAbout(const cups_size_t& size, PaperSize paper)
{
    constexpr int kTolerance = 200;
    return std::abs(size.width - paper.width) <= kTolerance &&
           std::abs(size.length - paper.height) <= kTolerance;
}

} // namespace

std::optional<PaperRim> paperRim(http_t& service, cups_dest_t& queue, PaperSize paper)
{
    const Info info(::cupsCopyDestInfo(&service, &queue));
    if (!info) {
        return std::nullopt;
    }
    cups_size_t size = {};
    const bool isKnown =
        ::cupsGetDestMediaBySize(&service, &queue, info.get(), paper.width, paper.height,
                                 CUPS_MEDIA_FLAGS_DEFAULT, &size) != 0 &&
        isAbout(size, paper);
    if (!isKnown && ::cupsGetDestMediaDefault(&service, &queue, info.get(),
                                              CUPS_MEDIA_FLAGS_DEFAULT, &size) == 0) {
        return std::nullopt;
    }
    return PaperRim{size.left, size.top, size.right, size.bottom,
                    resolutionOf(service, queue, *info)};
}

} // namespace print_helper
