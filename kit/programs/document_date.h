#ifndef KELPKIT_PROGRAMS_DOCUMENT_DATE_H
#define KELPKIT_PROGRAMS_DOCUMENT_DATE_H

#include <ctime>
#include <string>

namespace Kelpkit::programs {

/// Returns the date of a document in UTC: "November 22, 2026".
/// \param epoch  the variable SOURCE_DATE_EPOCH, seconds since 1970; null or empty if it is not set
/// \param now    the time without it
/// \throws std::runtime_error  if `epoch` is no whole number, or the time is before 1970 or after 9999
std::string documentDate(const char* epoch, std::time_t now);

}  // namespace Kelpkit::programs

#endif
