#!/usr/bin/env bash
# Has LibreOffice Calc open what the program copies, and write it in its own forms. The files of
# tests/data/spreadsheet are what it wrote then; this tells whether it still does.
# Usage: spreadsheet_peer.sh [--write]   (--write: puts what it writes now in their place)
set -u
here=$(cd "$(dirname "$0")" && pwd)
. "$here/packages.sh"
install_missing "${packages_spreadsheet[@]}" || exit 1

data=$here/../tests/data/spreadsheet
fresh=$(mktemp -d)
trap 'rm -rf "$fresh"' EXIT
trap 'exit 130' INT TERM
mkdir "$fresh/forms"

# Usage: profile NAME LOCALE. A user of the office who writes numbers as in that country.
profile() {
  mkdir -p "$fresh/$1/user"
  cat >"$fresh/$1/user/registrymodifications.xcu" <<XCU
<?xml version="1.0" encoding="UTF-8"?>
<oor:items xmlns:oor="http://openoffice.org/2001/registry">
<item oor:path="/org.openoffice.Setup/L10N"><prop oor:name="ooSetupSystemLocale" oor:op="fuse"><value>$2</value></prop></item>
</oor:items>
XCU
}

tabs='Text - txt - csv (StarCalc):9,34,76,1'
html='HTML (StarCalc)'
# Usage: convert PROFILE READER SOURCE FORM TARGET
convert() {
  soffice "-env:UserInstallation=file://$fresh/$1" --headless --calc --infilter="$2" \
    --convert-to "csv:Text - txt - csv (StarCalc):$4" --outdir "$fresh/out" "$3" \
    >"$fresh/log" 2>&1 </dev/null
  local made=$fresh/out/$(basename "${3%.*}").csv
  if ! mv "$made" "$fresh/forms/$5" 2>/dev/null; then
    echo "$5: nothing was written"
    cat "$fresh/log"
  fi
}

profile english en-US
profile german de-DE
# Divider, quote, UTF-8, from the first line; as shown or not.
as_shown=1,,0,false,true,false
# Of the calculated table each value has a half.
convert english "$tabs" "$data/copied.txt" "9,34,76,$as_shown" tabs.csv
convert english "$html" "$data/copied.html" "59,34,76,$as_shown" semicolons.csv
convert english "$html" "$data/copied.html" "44,34,76,$as_shown" commas.csv
convert english "$tabs" "$data/halves.txt" "44,34,76,$as_shown" points.csv
convert german "$tabs,,1033" "$data/halves.txt" "9,34,76,$as_shown" decimal_commas.csv
convert german "$tabs,,1033" "$data/halves.txt" "44,34,76,$as_shown" decimal_commas_in_quotes.csv

if [ "${1:-}" = --write ]; then
  cp "$fresh/forms/"*.csv "$data/"
  exit
fi
status=0
for form in "$fresh/forms/"*.csv; do
  if cmp -s "$form" "$data/$(basename "$form")"; then
    echo "$(basename "$form"): as in the tests"
  else
    echo "$(basename "$form"): differs"
    diff "$data/$(basename "$form")" "$form" | head -5
    status=1
  fi
done
count=$(ls "$fresh/forms" | wc -l)
[ "$count" = 6 ] || { echo "$count of 6 forms were written"; status=1; }
exit "$status"
