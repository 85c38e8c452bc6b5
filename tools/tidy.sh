#!/usr/bin/env bash
# Stands before the compiler in the presets lint and lint64 and has clang-tidy read what would be compiled, so that ninja
# knows what has changed since it was found clean:
#
#   tidy.sh FOLDERS COMPILER ARGS...
#
# All sources of a library come as one, so that the headers that they share, which take most of the time, are read once.
# What lies outside FOLDERS (a regular expression) is passed over. The object is an empty file.
set -uo pipefail
folders=$1
shift
source=${*: -1}
root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
build=$PWD
case $source in "$build"/*/Unity/*) ;; *) exec "$@" ;; esac

words=()
object='' dependencies=''
for ((i = 1; i <= $#; i++)); do
    case ${!i} in
        -o) ((i++)); object=${!i} ;;
        -MF) ((i++)); dependencies=${!i} ;;
        -MD | -MT | -c) [ "${!i}" != -MT ] || ((i++)) ;;
        *) words+=("${!i}") ;;
    esac
done

pass() {
    "${words[@]}" -M -MT "$object" -MF "$dependencies" && echo "$object: $root/.clang-tidy" >>"$dependencies" &&
        : >"$object"
}

if [[ ! ${source#"$build"/} =~ ^($folders)/ ]]; then pass; exit; fi

# What clang must be told to find the headers of the compiler for Windows.
extra=()
if [[ $1 == *mingw32* ]]; then
    headers=$(dirname "$("$1" -print-libgcc-file-name)")/include/c++
    extra=(--target=x86_64-w64-mingw32 "-isystem$headers" "-isystem$headers/x86_64-w64-mingw32")
fi
if found=$(clang-tidy -p "$build" -quiet "${extra[@]/#/-extra-arg=}" "$source" 2>&1); then pass; exit; fi
grep -vE 'warnings (generated|treated)|^Suppressed|^Use -header-filter' <<<"$found"
exit 1
