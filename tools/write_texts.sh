#!/usr/bin/env bash
# Writes the statement texts of tests/sql/texts anew, from what the code makes now. Look at the
# difference before you commit it: these texts run in the customers' databases.
#
#   tools/write_texts.sh [PRESET]    the build to use, debug by default

source "$(dirname "${BASH_SOURCE[0]}")/setup.sh"

preset=${1:-debug}
build "$preset" write_texts
"build/$preset/tests/sql/write_texts" tests/sql/texts
git --no-pager diff --stat -- tests/sql/texts
