// Live capture: RSVP packets from a network interface, each message written out as soon as it
// is decoded, until the message limit is reached or SIGINT/SIGTERM arrives.
#include <pcap/pcap.h>

#include <csignal>

#include "dump.hpp"

namespace rsvpdump {

namespace {

// RSVP over IP; over IPv6 also behind one hop-by-hop header (the Router Alert of a Path) or
// fragment header; over UDP. (A filter that chased every IPv6 extension header would loop,
// which the kernel refuses, so that filtering would fall back to user space.)
constexpr const char kRsvpFilter[] =
    "ip proto 46 or ip6 proto 46 or ((ip6 proto 0 or ip6 proto 44) and ip6[40] == 46)"
    " or udp port 1698 or udp port 1699";
constexpr int kSnapLen = 262144;
constexpr int kTimeoutMs = 200;

pcap_t *volatile g_live = nullptr;

void stop_capture(int) {
    if (pcap_t *p = g_live) pcap_breakloop(p);
}

}  // namespace

bool Dumper::dump_live(const std::string &interface, const std::string &filter) {
    const char *name = interface.c_str();
    char errbuf[PCAP_ERRBUF_SIZE] = "";
    pcap_t *p = pcap_create(name, errbuf);
    if (!p) {
        report(name, "cannot capture: %s", errbuf);
        ++stats_.inputs_failed;
        return false;
    }
    pcap_set_snaplen(p, kSnapLen);
    pcap_set_promisc(p, 1);
    pcap_set_immediate_mode(p, 1);
    pcap_set_timeout(p, kTimeoutMs);
    const int status = pcap_activate(p);
    if (status < 0) {
        report(name, "cannot capture: %s",
               status == PCAP_ERROR ? pcap_geterr(p) : pcap_statustostr(status));
        pcap_close(p);
        ++stats_.inputs_failed;
        return false;
    }
    if (status > 0) report(name, "warning: %s", pcap_statustostr(status));
    const std::string expression =
        filter.empty() ? kRsvpFilter : std::string("(") + kRsvpFilter + ") and (" + filter + ")";
    bpf_program program{};
    if (pcap_compile(p, &program, expression.c_str(), 1, PCAP_NETMASK_UNKNOWN) != 0 ||
        pcap_setfilter(p, &program) != 0) {
        report(name, "filter \"%s\": %s", expression.c_str(), pcap_geterr(p));
        pcap_freecode(&program);
        pcap_close(p);
        ++stats_.inputs_failed;
        return false;
    }
    pcap_freecode(&program);
    const int link = pcap_datalink(p);
    if (!link_type_supported(link)) {
        report(name, "link type %d (%s) is not supported", link,
               pcap_datalink_val_to_name(link) ? pcap_datalink_val_to_name(link) : "unknown");
        pcap_close(p);
        ++stats_.inputs_failed;
        return false;
    }

    g_live = p;
    struct sigaction action {};
    action.sa_handler = stop_capture;
    sigemptyset(&action.sa_mask);
    struct sigaction old_int {
    }, old_term{};
    sigaction(SIGINT, &action, &old_int);
    sigaction(SIGTERM, &action, &old_term);

    Origin origin;
    origin.source = name;
    origin.has_time = true;
    pcap_pkthdr *h = nullptr;
    const u_char *data = nullptr;
    bool ok = true;
    while (!limit_reached()) {
        const int rc = pcap_next_ex(p, &h, &data);
        if (rc == 0) continue;  // the timeout passed without a packet
        if (rc == PCAP_ERROR_BREAK) break;
        if (rc != 1) {
            report(name, "capture stopped: %s", pcap_geterr(p));
            ok = false;
            break;
        }
        ++origin.record;
        origin.sec = h->ts.tv_sec;
        origin.usec = static_cast<uint32_t>(h->ts.tv_usec);
        dump_frame(link, data, h->caplen, origin);
    }

    sigaction(SIGINT, &old_int, nullptr);
    sigaction(SIGTERM, &old_term, nullptr);
    g_live = nullptr;
    end_input();
    pcap_close(p);
    if (!ok) ++stats_.input_errors;
    return ok;
}

}  // namespace rsvpdump
