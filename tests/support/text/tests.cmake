# Text formats and writers (no program yet).
