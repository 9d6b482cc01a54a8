#pragma once

#include "core/settings.h"
#include "platform/desktop/pointer.h"
#include "platform/pictures/test_images.h"
#include "support/fake_dialogs.h"
#include "support/fake_printers.h"
#include "support/memory_config_store.h"
#include "support/temp_tree.h"

#include <gtest/gtest.h>

// Printers that print into lists, and folders and settings of the test's own.
class PrintTest : public testing::Test {
protected:
    static constexpr platform::PaperMetrics kPaper{
        .logPixelsX = 192, // two to a pixel of the page
        .logPixelsY = 192,
        .physicalWidth = 1588,
        .physicalHeight = 2246,
        .physicalOffsetX = 20,
        .physicalOffsetY = 40,
        .innerWidth = 1508,
        .innerHeight = 2126,
    };

    void beClassic() { core::store(core::kClassic, true); }
    void havePrinters()
    {
        printers.system = {{QStringLiteral("Laser"), false}, {QStringLiteral("Ink"), true}};
        printers.metrics = kPaper;
    }

    support::TempTree tree{{"app/", ""}};
    support::MemoryConfigStore config;
    support::FakeDialogs dialogs;
    support::FakePrinters printers;
};
