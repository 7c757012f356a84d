# The Debian packages that Kelda needs; sourced by ./run and ./test.
build_packages=(
  g++ cmake ninja-build python3          # tools
  libcli11-dev nlohmann-json3-dev        # command line
  libpugixml-dev libzip-dev              # puzzle files
  qt6-base-dev                           # window, paper and pictures
  libcups2-dev fonts-liberation          # printing, and its fonts
  wordnet-base                           # meanings of words
  scowl                                  # word lists
)
test_packages=(
  libgtest-dev librapidcheck-dev         # unit and property tests
  libbenchmark-dev                       # benchmarks
  cups cups-client cups-filters          # a print service for the tests
  ghostscript printer-driver-cups-pdf
  poppler-utils xclip                    # looking at pages and pictures
  chromium chromium-driver python3-selenium  # the playable page
  clang-14 libclang-rt-14-dev            # fuzz targets
  git clang-format-14 clang-tidy-14      # how sources are written
  xvfb xauth openbox xdotool x11-utils   # the program from outside
  imagemagick
  desktop-file-utils appstream           # checks of the package
  shared-mime-info dpkg-dev lintian man-db
  dbus at-spi2-core python3-gi           # the window as screen readers see it
  gir1.2-atspi-2.0
)
