// Reading the rest of a byte stream without trusting the size it reports.
#pragma once

#include <iosfwd>
#include <string>

namespace TalvexCore {

// The bytes from the stream's position to its end. The size the stream reports bounds the read,
// but memory grows only with the bytes that really arrive: a folder or a device that reports a
// size it does not hold costs nothing.
std::string readRemainingBytes(std::istream& in);

// The bytes from the stream's position up to its first zero byte, which is not taken. Reading
// stops there: a huge file of zeros costs one small piece of memory.
std::string readBytesUpToZero(std::istream& in);

}  // namespace TalvexCore
