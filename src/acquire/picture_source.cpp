#include "acquire/picture_source.h"

#include "acquire/scanner_source.h"

#include <utility>

namespace acquire {

namespace {

PictureSource* g_source = nullptr;

} // namespace

PictureSource& pictureSource()
{
    static ScannerSource scanners;
    return g_source != nullptr ? *g_source : scanners;
}

ScopedPictureSource::ScopedPictureSource(PictureSource& replacement)
    : m_previous(std::exchange(g_source, &replacement))
{
}

ScopedPictureSource::~ScopedPictureSource()
{
    g_source = m_previous;
}

} // namespace acquire
