#!/usr/bin/env bash
# The tour on the display in force. Usage: tour.sh PORTABLE_FOLDER PICTURES_FOLDER [SCALE]
exec /usr/bin/python3 "$(dirname "$0")/tour/tour.py" "$@"
