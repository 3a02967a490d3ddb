#!/bin/sh
# Usage: reports.sh PROGRAM [EMULATOR...]. Runs the deliberately bad tests, each in a
# process of its own, and fails unless every one is reported for what it is.
set -u
program=$1
shift
emulator="$*"
output=$(mktemp)
trap 'rm -f "$output"' EXIT

# run STATUS ARGUMENTS...: the exit status must be STATUS. Every process of the program
# has the pipe open, so one that a test left behind would hold this up.
run() {
  wanted=$1
  shift
  # shellcheck disable=SC2086  # a command and its arguments, or nothing
  { $emulator "$program" --separate-processes "$@" 2>&1 3>&1; echo "status $?"; } | cat >"$output"
  says "status $wanted"
}

says() {
  grep -qxF -- "$1" "$output" || { echo "not said: $1"; cat "$output"; exit 1; }
}

says_nothing_of() {
  if grep -qF -- "$1" "$output"; then
    echo "said, and should not be: $1"
    cat "$output"
    exit 1
  fi
}

for jobs in 1 3; do
  run 1 --gtest_filter='Bad.*' --jobs $jobs
  says "failed: Bad.Fails: exit status 1"
  says "said before the failure"
  says "this is the failure"
  says "failed: Bad.Crashes: killed by SIGABRT (Aborted)"
  says "said before the crash"
  says "failed: Bad.EndsTheProcess: the process ended before the test"
  says "failed: Bad.EndsTheProcessWithAStatus: exit status 7"
  says "skipped: Bad.Skips"
  says "7 tests in 7 processes: 2 passed, 4 failed, 1 skipped"
  says_nothing_of "a test that passes prints"
done

run 1 --gtest_filter='BadProcess.*' --timeout 1 --jobs 2
says "failed: BadProcess.Hangs: took longer than 1 s"
says "2 tests in 2 processes: 1 passed, 1 failed, 0 skipped"

run 1 --gtest_filter='Bad.*' --gtest_fail_fast
says "not run after the first failure: 5 tests"
says "2 tests in 2 processes: 1 passed, 1 failed, 0 skipped"

run 0 --gtest_filter='Ten/*' --jobs 4
says "10 tests in 10 processes: all passed"

GTEST_TOTAL_SHARDS=2 GTEST_SHARD_INDEX=1
export GTEST_TOTAL_SHARDS GTEST_SHARD_INDEX
run 0 --gtest_filter='Ten/*'
says "5 tests in 5 processes: all passed"
unset GTEST_TOTAL_SHARDS GTEST_SHARD_INDEX

run 1 --gtest_filter='Absent.*'
says "no test is selected"

run 2 --jobs 0
run 2 --no-such-argument
run 2 --timeout
