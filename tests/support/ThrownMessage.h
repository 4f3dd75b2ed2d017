#ifndef TINDRA_TESTS_SUPPORT_THROWNMESSAGE_H
#define TINDRA_TESTS_SUPPORT_THROWNMESSAGE_H

#include <string>

#include "tindra/TindraException.h"

// The message of the TindraException that the call throws, or a marker when it throws none.
template <typename Call>
std::string ThrownMessage(Call&& call) {
    try {
        call();
    } catch (Tindra::TindraException const& e) {
        return e.what();
    }
    return "<nothing thrown>";
}

#endif
