"""Reads a calendar file with Python's icalendar and prints its events as one line of JSON; fails on any complaint."""
import json
import sys

import icalendar
import pytz


def moment(value):
    """The time on the clocks of the zone, and in UTC; a date alone as it is."""
    if not hasattr(value, "hour"):
        return [value.strftime("%Y-%m-%d"), ""]
    utc = value.astimezone(pytz.utc).strftime("%Y-%m-%dT%H:%M:%S") if value.tzinfo else ""
    return [value.strftime("%Y-%m-%dT%H:%M:%S"), utc]


def text(value):
    return "" if value is None else str(value)


with open(sys.argv[1], "rb") as file:
    calendar = icalendar.Calendar.from_ical(file.read())
events = []
for part in calendar.walk():
    if part.errors:
        sys.exit(f"{part.name}: {part.errors}")
    if part.name == "VTIMEZONE":
        part.to_tz()
    if part.name != "VEVENT":
        continue
    categories = part.get("CATEGORIES")
    events.append({
        "uid": text(part.get("UID")),
        "start": moment(part["DTSTART"].dt),
        "end": moment(part["DTEND"].dt) if "DTEND" in part else ["", ""],
        "stamp": moment(part["DTSTAMP"].dt)[1],
        "summary": text(part.get("SUMMARY")),
        "description": text(part.get("DESCRIPTION")),
        "location": text(part.get("LOCATION")),
        "status": text(part.get("STATUS")),
        "categories": ",".join(str(one) for one in categories.cats) if categories is not None else "",
    })
print(json.dumps(events))
