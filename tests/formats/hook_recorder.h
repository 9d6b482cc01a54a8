#pragma once

#include "formats/hooks.h"

#include <string>
#include <vector>

// Keeps what the readers tell while it lives.
class HookRecorder {
public:
    HookRecorder()
    {
        formats::setHooks({[this](const char* text) { messages.push_back(text); },
                           [this](double fraction) { fractions.push_back(fraction); }});
    }
    HookRecorder(const HookRecorder&) = delete;
    HookRecorder& operator=(const HookRecorder&) = delete;
    ~HookRecorder() { formats::setHooks({}); }

    std::vector<std::string> messages;
    std::vector<double> fractions;
};
