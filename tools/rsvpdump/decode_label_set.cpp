// LABEL_SET and ACCEPTABLE_LABEL_SET: the action in words, the label type, and every label in
// decimal and hex.
#include <vector>

#include "decode.hpp"
#include "rsvp_object_lib.h"

namespace {

constexpr unsigned kLabelTypeOffset = 6;  // 16-bit field, the label type in its low 14 bits

const char *action_name(uint8_t action) {
    switch (action) {
        case RSVP_LABEL_SET_INCLUSIVE_LIST:
            return "inclusive list";
        case RSVP_LABEL_SET_EXCLUSIVE_LIST:
            return "exclusive list";
        case RSVP_LABEL_SET_INCLUSIVE_RANGE:
            return "inclusive range";
        default:
            return "exclusive range";
    }
}

void show(rsvpdump::Out &out, uint8_t action, uint16_t label_type, const uint32_t *labels,
          unsigned count) {
    out.line().str("action", action_name(action)).text(", label type ").u("label_type", label_type);
    if (label_type == RSVP_LABEL_SET_TYPE_LABEL) out.text(" (label)");
    if (label_type == RSVP_LABEL_SET_TYPE_GENERALIZED) out.text(" (generalized label)");
    out.text(", ").u("count", count).text(count == 1 ? " label: " : " labels: ");
    out.open_list("labels");
    for (unsigned i = 0; i < count; ++i) {
        out.open_item().text(i ? ", " : "").u("value", labels[i]).textf(" (0x%08x)", labels[i]);
        out.close();
    }
    out.close();
}

// Class 36. The extractor's count is 8 bits wide, so the labels are counted from the Length.
void decode_label_set(uint8_t *obj, rsvpdump::Out &out) {
    uint32_t *wire_labels = nullptr;
    uint8_t count8 = 0, action = 0;
    uint16_t label_type = 0;
    if (!rsvp_extract_label_set_obj(obj, &wire_labels, &count8, &action, &label_type)) return;
    const unsigned count = (RSVP_OBJECT_LENGTH(obj) - RSVP_LABEL_SET_HDR_LEN) / sizeof(uint32_t);
    std::vector<uint32_t> labels(count);
    RSVP_COPY_LABEL_NTOHL(labels.data(), wire_labels, static_cast<uint16_t>(count));
    show(out, action, label_type, labels.data(), count);
}

// Class 130, read with the 32-bit extractors, which hand back no label type.
void decode_acceptable_label_set(uint8_t *obj, rsvpdump::Out &out) {
    uint8_t action = 0;
    uint32_t count = 0;
    if (!rsvp_extract_32bit_label_set_obj(obj, RSVP_CLASS_ACCEPTABLE_LABEL_SET, &action, &count))
        return;
    std::vector<uint32_t> labels(count);
    if (!rsvp_extract_32bit_label_set_obj_labels(obj, RSVP_CLASS_ACCEPTABLE_LABEL_SET, count,
                                                 labels.data()))
        return;
    const auto label_type = static_cast<uint16_t>(
        (obj[kLabelTypeOffset] << 8 | obj[kLabelTypeOffset + 1]) & RSVP_LABEL_SET_TYPE_MASK);
    show(out, action, label_type, labels.data(), count);
}

}  // namespace

RSVPDUMP_DECODER(RSVP_CLASS_LABEL_SET, RSVP_CTYPE_LABEL_SET, decode_label_set);
RSVPDUMP_DECODER(RSVP_CLASS_ACCEPTABLE_LABEL_SET, RSVP_CTYPE_ACCEPTABLE_LABEL_SET,
                 decode_acceptable_label_set);
