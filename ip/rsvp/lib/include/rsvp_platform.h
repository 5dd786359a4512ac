/*
 * Platform services that librsvp calls but does not own.
 *
 * The library ships default definitions for a POSIX host as weak symbols. A routing process
 * (or a test) that defines a function of the same name, with C linkage, replaces the default,
 * and the library then calls the replacement.
 */
#ifndef RSVP_PLATFORM_H
#define RSVP_PLATFORM_H

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

/* Selectors of intf_svc_display_name. */
enum { RSVP_INTF_DISPLAY_SHORT = 0, RSVP_INTF_DISPLAY_LONG = 1 };

/* Value of an IEEE-754 single bit pattern, truncated toward zero; NaN gives 0, saturates. */
RSVP_API int64_t ieee_to_int64(uint32_t ieee_bits);
/* IEEE-754 single bit pattern of value, rounded to nearest. */
RSVP_API uint32_t int64_to_ieee(int64_t value);
/* Dotted quad of a wire-order IPv4 address, in a per-thread buffer. */
RSVP_API char *inet_ntoa_r(uint32_t addr_wire_order);
/* Copies at most size-1 bytes of src and always terminates dst (when size > 0); returns dst. */
RSVP_API char *sstrncpy(char *dst, const char *src, size_t size);
/* Writes the name of interface handle into name; 0 on success, non-zero for an unknown handle. */
RSVP_API int intf_svc_interface_name(uint32_t handle, char name[64]);
/* Display form of an interface name for the selector; the default answers the name itself. */
RSVP_API const char *intf_svc_display_name(const char *name, int selector);

#ifdef __cplusplus
}
#endif

#endif /* RSVP_PLATFORM_H */
