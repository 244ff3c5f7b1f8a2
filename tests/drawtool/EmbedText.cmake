cmake_policy(VERSION 3.25)
# Writes the text of INPUT to OUTPUT as one C++ raw string literal, for a test
# that reads a source file without finding it on disk at run time.
file(READ ${INPUT} text)
file(WRITE ${OUTPUT} "R\"EmbeddedText(${text})EmbeddedText\"\n")
