# The gallery host, run as a user runs it: one program that starts it once.
drawtool_test_program(gallery_tests examples/GalleryTest.cpp)
target_link_libraries(gallery_tests PRIVATE gdiplus gdi32)
add_dependencies(gallery_tests gallery)
