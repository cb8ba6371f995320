"""Tesmo Sorvet: a code-intelligence tool server for AI agents and people."""

__version__ = "2.6.0"
