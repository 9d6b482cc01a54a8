#include "formats/format.h"

#include <filesystem>
#include <fstream>

// A TGA picture of two pixels in one row, 24 bits each.
int main()
{
    const std::string path = std::filesystem::temp_directory_path() / "vistara-lone.tga";
    std::string bytes(18 + 2 * 3, '\0');
    bytes[2] = 2;
    bytes[12] = 2;
    bytes[14] = 1;
    bytes[16] = 24;
    std::ofstream(path, std::ios::binary) << bytes;
    RawImage image;
    OpenRawImage(path, image);
    std::filesystem::remove(path);
    return image.Width == 2 && image.Pixels.size() == 6 ? 0 : 1;
}
