#!/usr/bin/env bash
# Fails when a function declared by a public header is neither named in the harness code
# (fuzz/*.cpp and *.hpp, comments and string literals left out) nor listed in the exclusion
# file with a reason; also when an exclusion is stale (the function is gone, or the harness
# now calls it) or gives no reason.
#   check_reach.sh INCLUDE_DIR FUZZ_DIR EXCLUSIONS
set -euo pipefail
include_dir=$1 fuzz_dir=$2 exclusions=$3

# Declarations: the name before '(' of every RSVP_API declaration (as tests/check_exports.sh).
declared=$(cat "$include_dir"/*.h | perl -0pe 's{/\*.*?\*/}{}gs; s{^\s*#.*$}{}mg' | tr -s ' \n' ' ' |
           grep -oE 'RSVP_API [^;(]*\(' | sed -E 's/ *\($//; s/.*[ *]([A-Za-z_][A-Za-z0-9_]*)$/\1/' |
           sort -u)
# Every identifier of the harness code.
named=$(cat "$fuzz_dir"/*.cpp "$fuzz_dir"/*.hpp |
        perl -0pe 's{/\*.*?\*/}{}gs; s{//[^\n]*}{}g; s{"(?:[^"\\\n]|\\.)*"}{""}g' |
        grep -oE '[A-Za-z_][A-Za-z0-9_]*' | sort -u)
# Exclusions: "name  reason" per line; blank lines and '#' lines are ignored.
excl_lines=$(grep -vE '^[[:space:]]*(#|$)' "$exclusions" || true)
excluded=$(awk '{print $1}' <<<"$excl_lines" | sed '/^$/d' | sort -u)

status=0
report() {  # title, list
    if [ -n "$2" ]; then echo "$1:"; sed 's/^/  /' <<<"$2"; status=1; fi
}
report "neither called by the harness nor excluded" \
       "$(comm -23 <(comm -23 <(echo "$declared") <(echo "$named")) <(echo "$excluded"))"
report "excluded but not declared by any public header" "$(comm -13 <(echo "$declared") <(echo "$excluded"))"
report "excluded but called by the harness" "$(comm -12 <(echo "$excluded") <(echo "$named"))"
report "excluded without a reason" "$(awk 'NF < 2 {print $1}' <<<"$excl_lines")"
total=$(echo "$declared" | wc -l)
reached=$(comm -12 <(echo "$declared") <(echo "$named") | wc -l)
echo "$reached of $total public functions called by the harness, $(echo "$excluded" | sed '/^$/d' | wc -l) excluded"
exit $status
