#!/bin/bash
# Charts, report and calendar of one log, held against what they were when somebody looked at them, and by those who know
# what SVG, HTML and iCalendar are. `golden_test.sh CONSOLE TALLY FOLDER --update` makes FOLDER anew: look at it then.
set -u
console=$(realpath "$1") tally=$(realpath "$2") golden=$3 update=${4-}
finish() { rm -rf "$place"; }
source "$(dirname "$0")/../hosts/waiting.sh"

export HANDSET_LOCALE=en_US TZ=UTC HANDSET_CLOCK=2026-02-01T10:00:00Z XDG_RUNTIME_DIR=$place
chmod 700 "$place"

# What a year leaves behind: a fill every two weeks, and the rest.
rows() { # COUNT
  awk -v count="$1" 'BEGIN {
    print "date,odometer,gallons,total,kind,name,vendor,notes"
    for (row = 0; row < count; ++row) {
      day = strftime("%Y-%m-%d", 1736035200 + row * 14 * 86400, 1)
      volume = 11 + cos(row / 26 * 6.283)
      printf "%s,%d,%.2f,%.2f,fuel,,Hilltop,\n", day, 20000 + 345 * row, volume, volume * (3.3 + 0.2 * sin(row / 4))
      if (row % 7 == 3) printf "%s,%d,,%.2f,repair,Oil & filter,Garage <Nord>,\n", day, 20010 + 345 * row, 80.5 + row
      if (row % 5 == 1) printf "%s,%d,,12.5,expense,Parking,,\"two\nlines\"\n", day, 20020 + 345 * row
    }
  }'
}
make_log() { # NAME COUNT
  export HANDSET_STORAGE=$place/$1
  mkdir "$HANDSET_STORAGE"
  printf 'boot\nkey soft1\nkey soft1\nkey 1\ntype Wagon\nkey soft1\nkey action\nkey soft1\nkey 6\ntype %s\nkey soft1\n' \
    'Change; the oil, and the filter' | "$console" >/dev/null
  rows "$2" >"$place/$1.csv"
  "$tally" import --vehicle Wagon --distance mi --volume usgal --map \
    date=date,odometer=odometer,volume=gallons,total=total,kind=kind,name=name,vendor=vendor,notes=notes \
    "$place/$1.csv" 2>"$place/words" || fail "not imported: $(cat "$place/words")"
}

is_svg() { xmllint --noout "$1" || fail "$1 is no XML"; }
is_page() {
  tidy -q -e --show-warnings no "$1" >"$place/words" 2>&1
  [ -s "$place/words" ] && fail "$1: $(cat "$place/words")"
}

charts="economy price costs cost-per-distance distance shares"
make_log year 27
made=$place/made
mkdir "$made"
for chart in $charts; do
  "$tally" chart "$chart" -o "$made/$chart.svg" || fail "no chart of $chart"
  is_svg "$made/$chart.svg"
done
"$tally" report -o "$made/report.html" || fail "no report"
is_page "$made/report.html"
"$tally" calendar -o "$made/calendar.ics" || fail "no calendar"
/usr/bin/python3 - "$made/calendar.ics" <<'PYTHON' || fail "no calendar by the rules"
import sys, icalendar
data = open(sys.argv[1], "rb").read()
assert data.endswith(b"\r\n") and b"\n" not in data.replace(b"\r\n", b""), "line ends"
assert all(len(line) <= 75 for line in data.split(b"\r\n")), "a line is too long"
calendar = icalendar.Calendar.from_ical(data)
assert calendar["VERSION"] == "2.0" and calendar["PRODID"]
parts = [part for part in calendar.walk() if part.name in ("VEVENT", "VTODO")]
assert parts and all(part["UID"] and part["DTSTAMP"] and part["SUMMARY"] for part in parts)
assert any("Change; the oil, and the filter" in str(part["SUMMARY"]) for part in parts), "the text is not as it was"
assert calendar.to_ical(sorted=False).replace(b"\r\n ", b"") == data.replace(b"\r\n ", b""), "read and written it differs"
PYTHON
if [ -n "$update" ]; then
  mkdir -p "$golden"
  cp "$made"/* "$golden"
fi
diff -r "$golden" "$made" || fail "not as it was; if it is meant to be, look at it and say --update"

# The smallest and a large one are as well-formed.
for count in 1 7400; do
  make_log "log$count" "$count"
  for chart in $charts; do
    "$tally" chart "$chart" -o "$place/chart.svg"
    is_svg "$place/chart.svg"
  done
  "$tally" report -o "$place/report.html" || fail "no report of $count"
  is_page "$place/report.html"
done
echo "passed"
