"""What `tesmo-sorvet init` writes into a project: settings, rules and the skill."""
