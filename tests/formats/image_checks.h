#pragma once

#include "formats/raw_image.h"

#include <cstdint>
#include <gtest/gtest.h>
#include <vector>

// A record that no reader has filled, told apart from any file's picture.
inline RawImage markedImage()
{
    RawImage image;
    image.Width = 77;
    image.Height = 55;
    image.BitDepth = 99;
    image.Palette = {{1, 2, 3, 4}};
    image.Pixels = {9, 8, 7};
    return image;
}

inline std::vector<unsigned> pixelsOf(const RawImage& image)
{
    return {image.Pixels.begin(), image.Pixels.end()};
}

inline void expectPixels(const RawImage& image, const std::vector<unsigned>& expected)
{
    EXPECT_EQ(pixelsOf(image), expected);
}

inline void expectSize(const RawImage& image, int width, int height, int depth)
{
    EXPECT_EQ(image.Width, width);
    EXPECT_EQ(image.Height, height);
    EXPECT_EQ(int{image.BitDepth}, depth);
}

// Pixels are those of markedImage().
inline void expectOldPixels(const RawImage& image)
{
    expectPixels(image, {9, 8, 7});
}

// Nothing has changed since markedImage().
inline void expectUntouched(const RawImage& image)
{
    expectSize(image, 77, 55, 99);
    EXPECT_EQ(image.Palette.size(), 1U);
    expectOldPixels(image);
}
