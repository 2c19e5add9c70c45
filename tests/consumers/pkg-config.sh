PREFIX=/opt/bbconf
export PKG_CONFIG_PATH=$PREFIX/lib/pkgconfig
c++ -std=c++17 main.cpp $(pkg-config --cflags --libs bbconf) -o terminal_app
LD_LIBRARY_PATH=$(pkg-config --variable=libdir bbconf) ./terminal_app
