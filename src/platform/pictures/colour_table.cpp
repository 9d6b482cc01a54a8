#include "platform/pictures/colour_table.h"

#include <algorithm>
#include <cmath>
#include <queue>
#include <span>

namespace platform {

namespace {

constexpr std::size_t kEntries = 256;
constexpr int kSettlingRounds = 6;

using Channel = float WeightedColour::*;
constexpr std::array<Channel, 3> kChannels{&WeightedColour::red, &WeightedColour::green,
                                           &WeightedColour::blue};

// Sums over colours, from which their mean and their squared error come.
struct Sums {
    double weight = 0;
    std::array<double, 3> value{};
    std::array<double, 3> square{};

    void add(const WeightedColour& colour)
    {
        weight += colour.weight;
        for (std::size_t i = 0; i < 3; ++i) {
            const double channel = colour.*kChannels[i];
            value[i] += colour.weight * channel;
            square[i] += colour.weight * channel * channel;
        }
    }

    // Squared error of one channel when its mean stands for all.
    [[nodiscard]] double error(std::size_t i) const
    {
        return weight > 0 ? square[i] - value[i] * value[i] / weight : 0;
    }

    [[nodiscard]] WeightedColour mean() const
    {
        const auto channel = [this](std::size_t i) {
            return static_cast<float>(value[i] / weight);
        };
        return {channel(0), channel(1), channel(2), static_cast<float>(weight)};
    }
};

struct Box {
    std::span<WeightedColour> colours;
    Sums sums;

    [[nodiscard]] double error() const
    {
        return colours.size() < 2 ? 0 : sums.error(0) + sums.error(1) + sums.error(2);
    }
    friend bool operator<(const Box& left, const Box& right)
    {
        return left.error() < right.error();
    }
};

Box boxOf(std::span<WeightedColour> colours)
{
    Box box{colours, {}};
    for (const WeightedColour& colour : colours) {
        box.sums.add(colour);
    }
    return box;
}

// How many colours, in the order they stand, make the first part of the best cut: the one after
// which the squared values of the two means weigh most.
std::size_t bestCut(const Box& box)
{
    Sums first;
    double best = -1;
    std::size_t cut = 1;
    for (std::size_t i = 0; i + 1 < box.colours.size(); ++i) {
        first.add(box.colours[i]);
        const double restWeight = box.sums.weight - first.weight;
        double kept = 0;
        for (std::size_t c = 0; c < 3; ++c) {
            const double rest = box.sums.value[c] - first.value[c];
            kept += first.value[c] * first.value[c] / first.weight + rest * rest / restWeight;
        }
        if (kept > best) {
            best = kept;
            cut = i + 1;
        }
    }
    return cut;
}

std::pair<Box, Box> split(const Box& box)
{
    std::size_t widest = 0;
    for (std::size_t i = 1; i < 3; ++i) {
        if (box.sums.error(i) > box.sums.error(widest)) {
            widest = i;
        }
    }
    const Channel channel = kChannels[widest];
    std::sort(box.colours.begin(), box.colours.end(),
              [channel](const WeightedColour& left, const WeightedColour& right) {
                  return left.*channel < right.*channel;
              });
    const std::size_t cut = bestCut(box);
    return {boxOf(box.colours.first(cut)), boxOf(box.colours.subspan(cut))};
}

std::vector<WeightedColour> boxMeans(std::vector<WeightedColour> colours)
{
    std::priority_queue<Box> boxes;
    boxes.push(boxOf(colours));
    while (boxes.size() < kEntries && boxes.top().error() > 0) {
        const Box worst = boxes.top();
        boxes.pop();
        const auto [first, second] = split(worst);
        boxes.push(first);
        boxes.push(second);
    }
    std::vector<WeightedColour> means;
    for (; !boxes.empty(); boxes.pop()) {
        means.push_back(boxes.top().sums.mean());
    }
    return means;
}

// Gives each colour to its nearest entry and makes the entries the means of what they got.
void settle(std::vector<WeightedColour>& entries, const std::vector<WeightedColour>& colours)
{
    const NearestColour nearest(entries);
    std::vector<Sums> sums(entries.size());
    for (const WeightedColour& colour : colours) {
        sums[nearest.find(colour)].add(colour);
    }
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (sums[i].weight > 0) {
            entries[i] = sums[i].mean();
        }
    }
}

float squaredDistance(const WeightedColour& colour, float red, float green, float blue)
{
    const float r = colour.red - red;
    const float g = colour.green - green;
    const float b = colour.blue - blue;
    return r * r + g * g + b * b;
}

} // namespace

NearestColour::NearestColour(const std::vector<WeightedColour>& entries)
{
    for (const WeightedColour& entry : entries) {
        const auto number = static_cast<std::uint8_t>(m_entries.size());
        m_entries.push_back({entry.red, entry.green, entry.blue, number});
    }
    std::stable_sort(m_entries.begin(), m_entries.end(), [](const Entry& left, const Entry& right) {
        return left.green < right.green;
    });
    for (std::size_t green = 0, at = 0; green < m_firstByGreen.size(); ++green) {
        while (at < m_entries.size() && m_entries[at].green < static_cast<float>(green)) {
            ++at;
        }
        m_firstByGreen[green] = static_cast<int>(at);
    }
}

std::uint8_t NearestColour::find(const WeightedColour& colour) const
{
    const int count = static_cast<int>(m_entries.size());
    int up = m_firstByGreen[static_cast<std::size_t>(std::clamp(colour.green, 0.F, 255.F))];
    int down = up - 1;
    float best = std::numeric_limits<float>::max();
    std::uint8_t number = 0;
    const auto consider = [&](int& at, int step) {
        const Entry& entry = m_entries[static_cast<std::size_t>(at)];
        const float green = entry.green - colour.green;
        if (green * green >= best && green * static_cast<float>(step) > 0) {
            return false;
        }
        const float distance = squaredDistance(colour, entry.red, entry.green, entry.blue);
        if (distance < best) {
            best = distance;
            number = entry.number;
        }
        at += step;
        return true;
    };
    for (bool more = true; more;) {
        more = false;
        if (up < count) {
            more = consider(up, 1);
            up = more ? up : count;
        }
        if (down >= 0) {
            const bool below = consider(down, -1);
            down = below ? down : -1;
            more = more || below;
        }
    }
    return number;
}

std::vector<WeightedColour> representativeColours(const std::vector<WeightedColour>& colours)
{
    if (colours.size() <= kEntries) {
        return colours;
    }
    std::vector<WeightedColour> entries = boxMeans(colours);
    for (int round = 0; round < kSettlingRounds; ++round) {
        settle(entries, colours);
    }
    return entries;
}

ColourTable tableOf(const std::vector<WeightedColour>& entries)
{
    ColourTable table;
    table.fill(qRgb(0, 0, 0));
    for (std::size_t i = 0; i < std::min(entries.size(), table.size()); ++i) {
        const WeightedColour& entry = entries[i];
        table[i] = qRgb(static_cast<int>(std::lround(entry.red)),
                        static_cast<int>(std::lround(entry.green)),
                        static_cast<int>(std::lround(entry.blue)));
    }
    return table;
}

} // namespace platform
