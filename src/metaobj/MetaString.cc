#include "tindra/metaobj/MetaString.h"

#include <new>

#include "platform/Utf8.h"

namespace Tindra {
namespace MetaObj {

namespace {
// The host routines find the length themselves and take 0 for UTF-8.
constexpr int kZeroTerminated = -1;
}  // namespace

bool MetaString::_sInitialized = MetaString::Init();

MetaString::MetaString(std::string const& v, FactoryFlag) : MetaObject(String), value(v) {}

MetaString::MetaString(std::string&& v, FactoryFlag) : MetaObject(String), value(std::move(v)) {}

// A function-local instance, so that New works from any other static initialiser.
std::shared_ptr<MetaString> MetaString::New() {
    static std::shared_ptr<MetaString> const empty =
        std::make_shared<MetaString>(std::string(), FactoryFlag());
    return empty;
}

std::shared_ptr<MetaString> MetaString::New(std::string const& v) {
    if (v.empty()) {
        return New();
    }
    return std::make_shared<MetaString>(v, FactoryFlag());
}

std::shared_ptr<MetaString> MetaString::New(std::string&& v) {
    if (v.empty()) {
        return New();
    }
    return std::make_shared<MetaString>(std::move(v), FactoryFlag());
}

std::shared_ptr<MetaString> MetaString::New(char const* v) {
    if (*v == '\0') {
        return New();
    }
    return std::make_shared<MetaString>(std::string(v), FactoryFlag());
}

std::shared_ptr<MetaString> MetaString::NewUtf8WithEscapes(std::string&& v) {
    if (v.empty() ||
        Platform::Utf8_IsBufferValid(v.c_str(), kZeroTerminated, Platform::kEncodingUtf8)) {
        return New(std::move(v));
    }
    Platform::MallocedText escaped(
        Platform::Utf8_EscapeBuffer(v.c_str(), kZeroTerminated, Platform::kEncodingUtf8));
    if (!escaped) {
        throw std::bad_alloc();
    }
    return New(std::string(escaped.get()));
}

bool MetaString::Init() {
    New();
    return true;
}

std::string MetaString::ToString() const {
    return value;
}

}  // namespace MetaObj
}  // namespace Tindra
