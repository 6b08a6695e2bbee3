#!/usr/bin/env bash
# The tour on the display in force. Usage: tour.sh PORTABLE_FOLDER DOOR_FOLDER PICTURES_FOLDER en|ja
# Window titles are UTF-8.
export LC_ALL=C.UTF-8
exec /usr/bin/python3 "$(dirname "$0")/tour/tour.py" "$@"
