-- A table of 10,000,000 points for bench_server_questions: psql -v rows=10000000 -f bench/server_table.sql
\if :{?rows}
\else
\set rows 10000000
\endif
CREATE EXTENSION IF NOT EXISTS postgis;
CREATE TABLE big AS
    SELECT n::bigint AS id, (n::bigint * 7919 % 1000003)::double precision AS v, 'name ' || n % 2000 AS name,
           ST_SetSRID(ST_Point(random() * 1000, random() * 1000), 3857)::geometry(Point, 3857) AS g
    FROM generate_series(1, :rows) n;
ALTER TABLE big ADD PRIMARY KEY (id);
CREATE INDEX ON big USING gist (g);
VACUUM ANALYZE big;
