"""Private PostgreSQL and MariaDB clusters behind HAProxy, on loopback."""
