"""First-ply failure of millions of element load cases, spread over Dask
workers: the table of cases in partitions, each evaluated by one call of the
strength library on a worker (docs/scale.md).

    python3 examples/python/dask_strength_study.py                 # a local cluster
    python3 examples/python/dask_strength_study.py tcp://host:8786  # a running one
"""

import sys
import time

import dask.array as da
import dask.dataframe as dd
import numpy as np
import pandas as pd
from distributed import Client, LocalCluster

import corvane

MATERIAL = corvane.Material.load("T300/5208")
LAYUP = "(45/-45/0/90/0/90)2S"
CASES = 4_000_000
PER_PARTITION = 250_000
# The result columns and their types, for Dask to plan with.
RESULTS = {"rf": "float32", "ply": "int32", "surface": "int32", "mode": "int32"}


def failure(cases: pd.DataFrame) -> pd.DataFrame:
    """One partition: its load cases (columns Nx .. dT) in one strength call."""
    result = corvane.laminate_strength(MATERIAL, LAYUP, cases, "TSAI_WU")
    return pd.DataFrame(result._asdict(), index=cases.index)


def load_cases() -> dd.DataFrame:
    """Random running loads and moments, made on the workers partition by
    partition; a real study reads its table instead, for instance with
    dd.read_parquet("loads/*.parquet") or dd.read_csv("loads-*.csv")."""
    scale = np.array([500, 200, 100, 10, 10, 5, 0], dtype=np.float32)
    random = da.random.RandomState(1)
    values = random.uniform(-1.0, 1.0, (CASES, 7), chunks=(PER_PARTITION, 7))
    return dd.from_dask_array((values * scale).astype(np.float32), columns=list(corvane.LOAD_NAMES))


def main(address: str = "") -> None:
    cluster = None if address else LocalCluster(n_workers=2, threads_per_worker=1)
    with Client(address or cluster) as client:
        print(client)
        start = time.perf_counter()
        table = load_cases().persist()
        results = table.map_partitions(failure, meta=RESULTS)
        worst = results.nsmallest(3, "rf").compute()
        print(f"{CASES} cases in {table.npartitions} partitions: "
              f"{time.perf_counter() - start:.1f} s")
        print(table.loc[worst.index].compute().join(worst))
    if cluster is not None:
        cluster.close()


if __name__ == "__main__":
    main(*sys.argv[1:])
