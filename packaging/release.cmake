# What a release says of itself beside its version, which stands in the project() of CMakeLists.txt. Metadata,
# man pages, copyright file and package take it from here.

# No licence has been chosen by the owner yet. When it has: its SPDX name here, its words below.
set(RELEASE_LICENCE "LicenseRef-proprietary")
set(RELEASE_LICENCE_TEXT "No licence has been chosen by the owner yet. All rights are reserved.")

set(RELEASE_MAINTAINER "KOPRAX maintainers")
set(RELEASE_ADDRESS "koprax@example.org")

# When the release was made, in seconds since 1970: the date in every text, and of every file of the package,
# so that the same sources give the same package. `date -u -d '2026-11-23 12:00' +%s` tells the number.
set(RELEASE_EPOCH 1795435200)
