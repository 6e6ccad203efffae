#ifndef KELPKIT_PROGRAMS_OBSERVER_EVENTS_H
#define KELPKIT_PROGRAMS_OBSERVER_EVENTS_H

#include <initializer_list>
#include <string>
#include <string_view>

/// \file
/// What the functions of the observer share. All calls may come from any thread.

namespace Kelpkit::programs::observer {

using Event = std::initializer_list<std::string_view>;

/// Returns an event as its text in a report.
std::string textOf(Event fields);

/// Adds the events of a constructor to the report of this process.
void addTool(const std::string& text);

/// Adds an event, unless it has been added since the last constructor: many queries are in loops.
void add(Event fields);

/// Whether a command line is that of this process.
bool isOwn(int argc, char** argv);

/// Returns whose a command line is: "own", "kit" for the one with which the kit shows a help screen, or "other".
std::string_view ownerOf(int argc, char** argv);

/// Notes whether the command line of a reader is that of this process.
void noteReader(const void* reader, bool isOwn);

/// Adds a query of a reader, unless it has another command line.
void addQuery(const void* reader, Event fields);

/// Returns the library's function of the same name as the one that calls this.
void* next();

/// Whether a call came from the object file that contains a function.
bool isInner(const void* returnAddress, const void* function);

}  // namespace Kelpkit::programs::observer

#endif
