-- NuovoIdentificativo
SELECT NEWID()
GO

-- EliminaTabellaLavoro
 if object_id('tempdb..##tempDepositi') is not null  BEGIN  DROP TABLE ##tempDepositi END 
GO
