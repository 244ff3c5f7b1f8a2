drawtool_test_program(text_tests support/text/NumberTextTest.cpp support/text/TextWriterTest.cpp)
target_link_libraries(text_tests PRIVATE support)
