#ifndef TINDRA_TESTS_SUPPORT_RANDOMCHOICES_H
#define TINDRA_TESTS_SUPPORT_RANDOMCHOICES_H

#include <cstddef>
#include <random>
#include <string>
#include <vector>

// The seeded choices the document generators of the differential tests are made of, so that a
// failing document can be made again from its seed.
class RandomChoices {
public:
    explicit RandomChoices(unsigned seed) : random(seed) {}

    std::string Pick(std::vector<std::string> const& choices) {
        return choices[Below(choices.size())];
    }
    size_t Below(size_t bound) {
        return std::uniform_int_distribution<size_t>(0, bound - 1)(random);
    }
    bool Chance(int percent) { return Below(100) < static_cast<size_t>(percent); }

private:
    std::mt19937 random;
};

#endif
