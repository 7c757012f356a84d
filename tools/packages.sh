# The Debian packages that Kelda needs; sourced by ./run and ./test.
build_packages=(
  g++ cmake ninja-build python3          # tools
  libcli11-dev nlohmann-json3-dev        # command line
  qt6-base-dev                           # window, paper and pictures
  wordnet-base                           # meanings of words
  scowl                                  # word lists
)
test_packages=(
  libgtest-dev librapidcheck-dev         # unit and property tests
  libbenchmark-dev                       # benchmarks
  clang-14 libclang-rt-14-dev            # fuzz targets
  xvfb openbox xdotool x11-utils         # the program from outside
  imagemagick
  fonts-liberation
  desktop-file-utils appstream           # checks of what is installed
)
