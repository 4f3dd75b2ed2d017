#ifndef TINDRA_AUTOCLI_FORMATTERS_KINDMISMATCH_H
#define TINDRA_AUTOCLI_FORMATTERS_KINDMISMATCH_H

namespace Tindra {
namespace AutoCli {

// What a formatter writes in place of a value whose type tag and actual kind disagree. Every
// formatter uses the same words; each decides only how the line is framed.
namespace KindMismatch {
inline constexpr char const* kBool = "Error reading a bool";
inline constexpr char const* kInt = "Error reading a int";
inline constexpr char const* kString = "Error reading a string";
inline constexpr char const* kStruct = "Error reading a struct from output.";
inline constexpr char const* kList = "Error reading a List";
}  // namespace KindMismatch

}  // namespace AutoCli
}  // namespace Tindra

#endif
