// CStdioFile (not yet)
