"""Derives the shipped ONU data from the facts under data/facts/."""
