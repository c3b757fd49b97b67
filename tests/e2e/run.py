"""Runs scenarios by name: run.py scenarios.onboarding [...]"""

from scenario import main

main()
