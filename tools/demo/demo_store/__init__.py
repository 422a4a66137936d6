"""Turns the sources of the demo store into the folders that the player reads."""
