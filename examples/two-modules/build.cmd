@rem Compiles the two modules in this folder, with MinGW-w64 for 32-bit Windows.
i686-w64-mingw32-g++ -static -I../../include -L../../lib editor.cpp module.cpp delivery.cpp -o editor.exe -lole32 -loleaut32 -lQmxKrn2K
i686-w64-mingw32-g++ -static -I../../include -L../../lib library.cpp module.cpp delivery.cpp -o library.exe -lole32 -loleaut32 -lQmxKrn2K
