#!/usr/bin/env bash
# Plays the conversations of tests/conversations and puts the replies that come now into their files. The difference is read before it
# is committed: the tests hold the replies against these files.
#   scripts/approve.sh
set -euo pipefail
cd "$(dirname "$0")/.."
source scripts/packages.sh

need_packages "${build_packages[@]}" "${test_packages[@]}"
configure_and_build release hosts_tests
status=0
ZOLT20_APPROVE=yes build/release/tests/hosts_tests --gtest_brief=1 '--gtest_filter=*ConversationsTest*' >/dev/null || status=$?
git --no-pager diff --stat -- tests/conversations
[ $status -eq 0 ] || echo "Replies are others now. Read the difference with git diff, and run the tests again."
