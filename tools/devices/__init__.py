"""Layouts of the devices: where each control lies, how it is drawn, what its manifest says."""
