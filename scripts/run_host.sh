#!/bin/sh
# run_host.sh HOST CATALOGUE REPORTS: confirms the population and prints the
# summary; on a terminal the console follows on the loaded state.
set -eu
host=$1
catalogue=$2
reports=$3
if [ -t 0 ]; then
  exec "$host" console "$catalogue" "$reports"
fi
exec "$host" confirm "$catalogue" "$reports" --summary
