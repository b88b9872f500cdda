// The fixed-width integers as Microsoft's <cstdint> defines them, for
// compiling the public header against the MSVC ABI without Microsoft's
// headers: the decorated names depend on exactly these types.
#pragma once
namespace std {
typedef unsigned int uint32_t;
typedef unsigned long long uint64_t;
typedef int int32_t;
typedef long long int64_t;
}
using std::int32_t;
using std::int64_t;
using std::uint32_t;
using std::uint64_t;
