#ifndef SCANLOG_H
#define SCANLOG_H

#include <string>

/* Writes one line to the standard error output when SWIPELINE_LOG is set. Any thread. */
void scanLog(const std::string& line);

/* Writes it in any case: what whoever sets a camera up has to know. */
void scanError(const std::string& line);

#endif
