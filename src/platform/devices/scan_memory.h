#pragma once

#include "platform/devices/scan_facts.h"

#include <QImage>

namespace platform {

// The memory that the program and its helper share for the pixels of a scan. It has room for the
// largest scan from the start and costs only what is written; neither side can change its size, so
// that the other one never reads beyond it.
class ScanMemory {
public:
    ScanMemory();
    ~ScanMemory();
    ScanMemory(const ScanMemory&) = delete;
    ScanMemory& operator=(const ScanMemory&) = delete;

    [[nodiscard]] bool isOpen() const { return m_descriptor >= 0; }
    // Closed in programs started from here, unless they are given it.
    [[nodiscard]] int descriptor() const { return m_descriptor; }

    // The image of a shape within kLargestScan, in QImage::Format_Grayscale8 or Format_RGB888. It
    // shows this memory, also when this object has gone. Null where it can't be mapped.
    [[nodiscard]] QImage image(const ScanShape& shape) const;

private:
    int m_descriptor = -1;
};

} // namespace platform
