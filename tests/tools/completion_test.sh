#!/usr/bin/env bash
# The bash completion and the manual page against the tool's own help:
# every subcommand the help lists is completed and has its section in the
# page, every option a subcommand's help shows is completed, --table and
# the schema operand complete the table names, --key the keys `list --json`
# shows for AWB containers.
#   completion_test.sh TOOL COMPLETION_SCRIPT MAN_PAGE
set -uo pipefail
tool=($1)
script=$2
man_page=$3
failures=0

fail() {
  echo "FAIL: $*" >&2
  failures=$((failures + 1))
}

# The built script is what the tool writes now.
diff -q <("${tool[@]}" completion bash) "$script" >/dev/null ||
  fail "$script is not what '${tool[*]} completion bash' writes"
# shellcheck disable=SC1090
source "$script"

# The words bash would offer after the command line "$1" (the last word,
# possibly empty, is the one completed).
complete_line() {
  read -r -a COMP_WORDS <<<"$1"
  [[ $1 == *" " ]] && COMP_WORDS+=("")
  COMP_CWORD=$((${#COMP_WORDS[@]} - 1))
  COMPREPLY=()
  _q3a_tuning 2>/dev/null
  printf '%s\n' "${COMPREPLY[@]}"
}

expect_words() {  # LINE WORD...
  local line=$1 offered
  shift
  offered=$(complete_line "$line")
  for word in "$@"; do
    grep -qxF -- "$word" <<<"$offered" ||
      fail "'$line' does not offer '$word' (offers: $(echo $offered))"
  done
}

subcommands=$("${tool[@]}" --help |
  sed -n '/^Subcommands:$/,/^$/s/^  \([a-z][a-z-]*\) .*/\1/p')
[ -n "$subcommands" ] || fail "the help lists no subcommands"
tables=$(printf 'basic\nadvance\ncolor\nfeature\n')
keys=$("${tool[@]}" list --json | python3 -c '
import json, sys
for r in json.load(sys.stdin):
    if r["node"] == "awb":
        k = r["key"]
        print(",".join(str(k[f]) for f in ("use_case", "sensor_mode",
              "camera_position", "lens_type", "reserved")))')

# shellcheck disable=SC2086
expect_words "q3a-tuning " $subcommands --help --version
complete_line "q3a-tuning " | grep -qx completion &&
  fail "the hidden completion subcommand is offered"
offered=$(complete_line "q3a-tuning ex")
[ "$offered" = export ] || fail "'q3a-tuning ex' offers '$offered', not export"

for subcommand in $subcommands; do
  options=$("${tool[@]}" "$subcommand" --help |
    sed -n 's/^  \(-[^ ]*\).*/\1/p' | tr ',' '\n' | sort -u)
  # shellcheck disable=SC2086
  expect_words "q3a-tuning $subcommand -" $options
  grep -qx "\.SS $subcommand" "$man_page" ||
    fail "the manual page has no section for $subcommand"
done

# shellcheck disable=SC2086
expect_words "q3a-tuning validate --table " $tables
# shellcheck disable=SC2086
expect_words "q3a-tuning schema " $tables
# shellcheck disable=SC2086
expect_words "q3a-tuning export --key " $keys
first_key=$(head -n 1 <<<"$keys")
offered=$(complete_line "q3a-tuning validate --key ${first_key%%,*},")
grep -qxF -- "$first_key" <<<"$offered" ||
  fail "a key prefix does not complete to $first_key"
expect_words "q3a-tuning convert x.json --to " json binary

grep -q '^\.TH Q3A-TUNING "1"' "$man_page" || fail "the manual page has no title"
version=$("${tool[@]}" --version)
grep -qF "$version" "$man_page" || fail "the manual page lacks version $version"

if [ "$failures" -ne 0 ]; then
  echo "$failures failures" >&2
  exit 1
fi
echo "completion and manual page agree with the help"
