#!/bin/bash
# Checks a program that is to be shipped:  check-program.sh PROGRAM.exe VERSION
#
# Small, stripped, needs nothing but Windows' own libraries, has its manifest and its version.
set -uo pipefail
program=$1 version=$2
size_limit=3000000
# All but COMCTL32 are loaded from the system folder whatever lies elsewhere; COMCTL32 is found through the manifest.
system_libraries='ADVAPI32 COMCTL32 COMDLG32 GDI32 KERNEL32 MSVCRT OLE32 OLEAUT32 SHELL32 SHLWAPI USER32'
faults=0

fault() { printf '%s: %s\n' "${program##*/}" "$*" >&2; faults=$((faults + 1)); }

[ -f "$program" ] || { fault "is missing"; exit 1; }
headers=$(objdump -p "$program") || exit 1

size=$(stat -c %s "$program")
[ "$size" -lt $size_limit ] || fault "has $size bytes, $size_limit and more are too many"
nm "$program" 2>&1 | grep -q 'no symbols' || fault "is not stripped"

imports=$(sed -nE 's/^[[:space:]]*DLL Name: (.*)\.dll$/\1/Ip' <<<"$headers" | tr '[:lower:]' '[:upper:]' | sort -u)
foreign=$(comm -23 <(printf '%s\n' "$imports") <(printf '%s\n' $system_libraries | sort))
[ -n "$imports" ] || fault "imports nothing"
[ -z "$foreign" ] || fault "needs" $foreign

characteristics=(DYNAMIC_BASE NX_COMPAT)
grep -q 'file format pei-x86-64' <<<"$headers" && characteristics+=(HIGH_ENTROPY_VA)
for characteristic in "${characteristics[@]}"; do
    grep -qw "$characteristic" <<<"$headers" || fault "is linked without $characteristic"
done
grep -qE '^Entry 5 0*[1-9a-f][0-9a-f]* ' <<<"$headers" || fault "cannot be moved in memory"

manifest=$(wrestool -x --raw --type=24 "$program")
for wanted in "version=\"$version.0\"" Microsoft.Windows.Common-Controls PerMonitorV2 '<dpiAware ' \
    '{35138b9a-5d96-4fbd-8e2d-a2440225f93a}' '{8e0f7a12-bfb3-4fe8-b9a5-48fd50a15a9a}' 'level="asInvoker"'; do
    grep -qF "$wanted" <<<"$manifest" || fault "has a manifest without $wanted"
done

# A value stands behind its key and some zeros; before the key are lengths.
texts=$(wrestool -x --raw --type=16 "$program" | iconv -f UTF-16LE -t UTF-8 -c | tr -s '\0' '\n')
for wanted in CompanyName/Ormeda "FileVersion/$version" "ProductVersion/$version" ProductName/Blattwart; do
    [ "$(grep -a -A1 "${wanted%/*}\$" <<<"$texts" | tail -n 1)" = "${wanted#*/}" ] || fault "has not the $wanted"
done

[ "$faults" = 0 ] || exit 1
printf '%s: %d bytes, needs' "${program##*/}" "$size"
printf ' %s' $imports
printf '\n'
