/*
 * librsvp text utilities: message types, session kinds, flows, labels and interface names
 * rendered as text for log lines and show commands.
 */
#ifndef RSVP_LIB_UTIL_H
#define RSVP_LIB_UTIL_H

#include <stddef.h>
#include <stdint.h>

#ifndef RSVP_API
#if defined(__GNUC__) || defined(__clang__)
#define RSVP_API __attribute__((visibility("default")))
#else
#define RSVP_API
#endif
#endif

#ifdef __cplusplus
extern "C" {
#endif

/* The text functions arrive with their families. */

#ifdef __cplusplus
}
#endif

#endif /* RSVP_LIB_UTIL_H */
