"""Holds no code of the program, which is installed as a script: `python -m registry_docs` runs it."""
