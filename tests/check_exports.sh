#!/usr/bin/env bash
# Compares the dynamic symbols that librsvp.so defines with the functions its public headers
# declare: nothing internal (and nothing of the C++ runtime) may leak, nothing declared may be
# missing.
set -euo pipefail
lib=$1 include_dir=$2
exported=$(nm -D --defined-only "$lib" | awk '$2 ~ /^[TWtw]$/ {print $3}' | sed 's/@.*//' | sort -u)
# Declarations: drop comments and preprocessor lines, then take the name before '(' of every
# RSVP_API declaration.
declared=$(cat "$include_dir"/*.h | perl -0pe 's{/\*.*?\*/}{}gs; s{^\s*#.*$}{}mg' | tr -s ' \n' ' ' |
           grep -oE 'RSVP_API [^;(]*\(' | sed -E 's/ *\($//; s/.*[ *]([A-Za-z_][A-Za-z0-9_]*)$/\1/' |
           sort -u)
extra=$(comm -23 <(echo "$exported") <(echo "$declared"))
missing=$(comm -13 <(echo "$exported") <(echo "$declared"))
status=0
if [ -n "$extra" ]; then echo "exported but not declared:"; echo "$extra"; status=1; fi
if [ -n "$missing" ]; then echo "declared but not exported:"; echo "$missing"; status=1; fi
[ $status -eq 0 ] && echo "$(echo "$exported" | wc -l) exported symbols match the headers"
exit $status
